#include "platform/forms/form_syntax.h"

#include "platform/forms/form_words.h"
#include "platform/system/strings.h"

#include <optional>

namespace vorn::forms {

namespace {

constexpr StringView EndWord = u"end";
constexpr StringView ItemWord = u"item";
constexpr StringView ObjectWord = u"object";

class Parser {
public:
    explicit Parser(StringView text) : rest_(text) {}

    Object ParseForm()
    {
        if (!Advance())
            throw EFormError(1, u"there is no object in the text");
        Object root = ParseObject(1);
        if (Advance())
            Fail(Quoted(text_.substr(0, 20)) + u" stands behind the end of the form");
        return root;
    }

private:
    /// Goes to the next line that isn't blank and cuts the blanks at its ends off. False behind the last one.
    bool Advance()
    {
        while (!rest_.empty()) {
            const std::size_t end = rest_.find_first_of(u"\r\n");
            text_ = rest_.substr(0, end);
            ++line_;
            if (end == StringView::npos)
                rest_ = {};
            else
                rest_.remove_prefix(end + (rest_.substr(end).starts_with(u"\r\n") ? 2 : 1));
            const std::size_t first = text_.find_first_not_of(u" \t");
            if (first == StringView::npos)
                continue;
            text_ = text_.substr(first, text_.find_last_not_of(u" \t") + 1 - first);
            return true;
        }
        return false;
    }

    [[noreturn]] void Fail(StringView message) const { throw EFormError(line_, message); }

    /// The next line inside of something that ends with a line of its own.
    void AdvanceIn(const String& what, int begun)
    {
        if (!Advance())
            throw EFormError(line_, u"the text ends inside of " + what + u", which begins in line " + IntToStr(begun));
    }

    void CheckDepth(int depth) const
    {
        if (depth > MaxDepth)
            Fail(u"objects and items lie in each other deeper than " + IntToStr(MaxDepth));
    }

    /// A property may be called "object" as well.
    bool AtObject() const
    {
        if (!text_.starts_with(ObjectWord) || text_.size() == ObjectWord.size())
            return text_ == ObjectWord;
        const char16_t next = text_[ObjectWord.size()];
        return (next == u' ' || next == u'\t') && text_.find(u'=') == StringView::npos;
    }

    Object ParseObject(int depth)
    {
        CheckDepth(depth);
        if (!AtObject())
            Fail(u"'object' expected, but there is " + Quoted(text_.substr(0, 20)));
        Object object;
        object.Line = line_;
        Words words(text_.substr(ObjectWord.size()), line_);
        object.Class = words.TakeName(u"a class name");
        if (words.Take(u':')) {
            object.Name = std::move(object.Class);
            object.Class = words.TakeName(u"a class name");
        }
        words.ExpectEnd();

        const String what = (object.Name.empty() ? u"the " + object.Class : object.Name);
        for (AdvanceIn(what, object.Line); text_ != EndWord; AdvanceIn(what, object.Line)) {
            if (AtObject())
                object.Children.push_back(ParseObject(depth + 1));
            else if (object.Children.empty())
                object.Properties.push_back(ParseProperty(depth));
            else
                Fail(Quoted(text_.substr(0, 20)) + u": properties of " + what + u" stand before its objects");
        }
        return object;
    }

    Property ParseProperty(int depth)
    {
        Words words(text_, line_);
        Property property{line_, words.TakeDottedName(u"a property"), {}};
        words.Expect(u'=');
        if (words.AtEnd())
            Fail(property.Path + u" has no value");
        property.Value = ParseValue(words, property.Path, depth);
        return property;
    }

    Value ParseValue(Words& words, const String& path, int depth)
    {
        Value value;
        if (words.IsNext(u'<'))
            return ParseItems(words, path, depth);
        if (words.IsNext(u'(')) {
            if (auto lines = TryLines(words, path))
                return std::move(*lines);
            value = words.TakePoint();
        } else if (words.IsNext(u'[')) {
            value = words.TakeSet();
        } else if (words.IsNext(u'\'') || words.IsNext(u'#')) {
            value = words.TakeString();
        } else if (StringView(u"+-$.0123456789").find(words.Next()) != StringView::npos) {
            value = Number{words.TakeNumber()};
        } else {
            value = Name{words.TakeDottedName(u"a value of " + path)};
        }
        words.ExpectEnd();
        return value;
    }

    /// "()", or "(" and lines of texts up to ")"; none if it is a point.
    std::optional<Lines> TryLines(const Words& words, const String& path)
    {
        Words ahead = words;
        ahead.Take(u'(');
        Lines lines;
        if (ahead.Take(u')')) {
            ahead.ExpectEnd();
            return lines;
        }
        if (!ahead.AtEnd())
            return std::nullopt;
        const int begun = line_;
        for (AdvanceIn(path, begun); text_ != u")"; AdvanceIn(path, begun)) {
            Words line(text_, line_);
            lines.Texts.push_back(line.TakeString());
            line.ExpectEnd();
        }
        return lines;
    }

    /// "<>", or "<" and items up to ">".
    Items ParseItems(Words& words, const String& path, int depth)
    {
        Items items;
        words.Take(u'<');
        const bool none = words.Take(u'>');
        words.ExpectEnd();
        if (none)
            return items;
        const int begun = line_;
        for (AdvanceIn(path, begun); text_ != u">"; AdvanceIn(path, begun))
            items.List.push_back(ParseItem(path, depth + 1));
        return items;
    }

    Item ParseItem(const String& path, int depth)
    {
        CheckDepth(depth);
        if (text_ != ItemWord)
            Fail(u"'item' expected in " + path + u", but there is " + Quoted(text_.substr(0, 20)));
        Item item{line_, {}};
        const String what = u"an item of " + path;
        for (AdvanceIn(what, item.Line); text_ != EndWord; AdvanceIn(what, item.Line))
            item.Properties.push_back(ParseProperty(depth));
        return item;
    }

    StringView rest_;
    StringView text_; // the current line without blanks at its ends
    int line_ = 0;
};

} // namespace

Object Parse(StringView text)
{
    return Parser(text).ParseForm();
}

} // namespace vorn::forms

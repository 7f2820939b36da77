#include "platform/forms/form_words.h"

#include "platform/system/strings.h"

#include <algorithm>

namespace vorn::forms {

namespace {

bool IsDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

bool IsNameCharacter(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_' || IsDigit(c);
}

bool IsNumberCharacter(char16_t c)
{
    return IsNameCharacter(c) || c == u'+' || c == u'-' || c == u'.' || c == u'$';
}

bool IsPrintable(char16_t c)
{
    return c >= u' ' && c <= u'~';
}

template <typename F>
StringView Leading(StringView text, F fits)
{
    const auto end = std::find_if_not(text.begin(), text.end(), fits);
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

} // namespace

bool IsName(StringView text)
{
    return !text.empty() && !IsDigit(text.front()) && Leading(text, IsNameCharacter).size() == text.size();
}

String Quoted(StringView text)
{
    if (text.empty())
        return u"''";
    String result;
    while (!text.empty()) {
        const StringView printable = Leading(text, IsPrintable);
        if (!printable.empty()) {
            result += u'\'';
            for (char16_t c : printable)
                result.append(c == u'\'' ? 2 : 1, c);
            result += u'\'';
        }
        text.remove_prefix(printable.size());
        for (; !text.empty() && !IsPrintable(text.front()); text.remove_prefix(1))
            result.append(u"#").append(IntToStr(text.front()));
    }
    return result;
}

void Words::Fail(StringView message) const
{
    throw EFormError(line_, message);
}

void Words::SkipBlanks()
{
    rest_.remove_prefix(Leading(rest_, [](char16_t c) { return c == u' ' || c == u'\t'; }).size());
}

bool Words::AtEnd()
{
    SkipBlanks();
    return rest_.empty();
}

char16_t Words::Next()
{
    return AtEnd() ? u'\0' : rest_.front();
}

bool Words::IsNext(char16_t c)
{
    return !AtEnd() && rest_.front() == c;
}

bool Words::Take(char16_t c)
{
    if (!IsNext(c))
        return false;
    rest_.remove_prefix(1);
    return true;
}

void Words::Expect(char16_t c)
{
    if (Take(c))
        return;
    const String found = AtEnd() ? u"the end of the line" : Quoted(rest_.substr(0, 20));
    Fail(Quoted(String(1, c)) + u" expected, but there is " + found);
}

void Words::ExpectEnd()
{
    if (!AtEnd())
        Fail(Quoted(rest_.substr(0, 20)) + u" stands behind the end of the line's meaning");
}

String Words::TakeName(StringView what)
{
    SkipBlanks();
    const StringView name = Leading(rest_, IsNameCharacter);
    if (!IsName(name))
        Fail(String(what) + u" expected, but there is "
            + (rest_.empty() ? u"the end of the line" : Quoted(rest_.substr(0, 20))));
    rest_.remove_prefix(name.size());
    return String(name);
}

String Words::TakeDottedName(StringView what)
{
    String name = TakeName(what);
    while (!rest_.empty() && rest_.front() == u'.') {
        rest_.remove_prefix(1);
        name.append(u".").append(TakeName(what));
    }
    return name;
}

String Words::TakeString()
{
    String text;
    if (!IsNext(u'\'') && !IsNext(u'#'))
        Fail(u"a text in quotes expected");
    while (!rest_.empty() && (rest_.front() == u'\'' || rest_.front() == u'#')) {
        if (rest_.front() == u'#')
            TakeUnit(text);
        else
            TakeQuoted(text);
    }
    return text;
}

void Words::TakeQuoted(String& text)
{
    rest_.remove_prefix(1);
    for (;;) {
        const std::size_t quote = rest_.find(u'\'');
        if (quote == StringView::npos)
            Fail(u"a text is not closed with a quote");
        text += rest_.substr(0, quote);
        rest_.remove_prefix(quote + 1);
        if (rest_.empty() || rest_.front() != u'\'')
            return;
        text += u'\''; // a doubled quote stands for itself
        rest_.remove_prefix(1);
    }
}

void Words::TakeUnit(String& text)
{
    rest_.remove_prefix(1);
    const StringView digits = Leading(rest_, [](char16_t c) { return IsDigit(c); });
    const auto unit = digits.size() <= 5 ? TryStrToInt(digits) : std::nullopt;
    if (!unit || *unit > 0xFFFF)
        Fail(u"'#' takes a number from 0 to 65535");
    text += static_cast<char16_t>(*unit);
    rest_.remove_prefix(digits.size());
}

String Words::TakeNumber()
{
    SkipBlanks();
    const StringView number = Leading(rest_, IsNumberCharacter);
    rest_.remove_prefix(number.size());
    return String(number);
}

int Words::TakeInteger()
{
    const String number = TakeNumber();
    const auto value = TryStrToInt(number);
    if (!value)
        Fail(Quoted(number.empty() ? rest_.substr(0, 20) : number) + u" is not a whole number of 32 bits");
    return *value;
}

Set Words::TakeSet()
{
    Set set;
    Expect(u'[');
    if (Take(u']'))
        return set;
    do
        set.Elements.push_back(IsDigit(Next()) ? TakeNumber() : TakeName(u"an element of a set"));
    while (Take(u','));
    Expect(u']');
    return set;
}

TPoint Words::TakePoint()
{
    TPoint point;
    Expect(u'(');
    point.X = TakeInteger();
    Expect(u',');
    point.Y = TakeInteger();
    Expect(u')');
    return point;
}

} // namespace vorn::forms

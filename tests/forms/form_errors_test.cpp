#include "tests/forms/form_fixture.h"

#include <sstream>

namespace vorn::test {
namespace {

std::vector<std::string> LinesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line + '\n');
    return lines;
}

TEST_F(FormTest, ErrorsNameLineAndWhatIsWrong)
{
    const std::pair<const char*, const char*> cases[] = {
        {"Wrong = 1", "Line 2: Sample has no property Wrong"},
        {"Tag = 1\nPart.Wrong = 1", "Line 3: Part has no property Wrong"},
        {"Count.Wrong = 1", "Line 2: Count has no properties of its own"},
        {"Part = 1", "Line 2: Part takes no value: its own properties are set by name"},
        {"Count = 'x'", "Line 2: Count takes a whole number"},
        {"Count = 1.5", "Line 2: Count: '1.5' is not a whole number"},
        {"Count = 2147483648", "Line 2: Count: 2147483648 is not from -2147483648 to 2147483647"},
        {"Byte = 256", "Line 2: Byte: 256 is not from 0 to 255"},
        {"Byte = -1", "Line 2: Byte: -1 is not from 0 to 255"},
        {"Color = clMud", "Line 2: Color knows no value clMud"},
        {"Mood = 1", "Line 2: Mood takes one of its names"},
        {"Mood = Glad", "Line 2: Mood knows no value Glad"},
        {"Flag = Perhaps", "Line 2: Flag knows no value Perhaps"},
        {"Marks = [mkFourth]", "Line 2: Marks knows no element mkFourth"},
        {"Marks = [mkFirst", "Line 2: ']' expected, but there is the end of the line"},
        {"Ratio = 1.2.3", "Line 2: Ratio: '1.2.3' is not a number"},
        {"Text = 'open", "Line 2: a text is not closed with a quote"},
        {"Text = #65536", "Line 2: '#' takes a number from 0 to 65535"},
        {"Text = 'a' 'b'", "Line 2: '''b''' stands behind the end of the line's meaning"},
        {"Place = (1, 2", "Line 2: ')' expected, but there is the end of the line"},
        {"Lines = ('a')", "Line 2: '''a'')' is not a whole number"},
        {"Lines = (\nx\n)", "Line 3: a text in quotes expected"},
        {"Lines = <>", "Line 2: Lines takes lines of texts between '(' and ')'"},
        {"Entries = <\nNumber = 1\n>", "Line 3: 'item' expected in Entries, but there is 'Number = 1'"},
        {"Entries = <\nitem\nLink = nil\nend\n>", "Line 4: Link of an item of Entries: an entry needs a link"},
        {"Peer = nobody", "Line 2: Peer: there is no component named nobody"},
        {"Peer = s.nobody", "Line 2: Peer: there is no component named s.nobody"},
        {"Peer = t\nobject t: Tile\nend", "Line 2: Peer takes a Sample; t is a Tile"},
        {"OnOpen = Missing", "Line 2: OnOpen: the application offers no handler Missing"},
        {"OnOpen = Change", "Line 2: OnOpen: the handler Change is for events of another type"},
        {"Guarded = -1", "Line 2: Guarded of s: below zero"},
        {"Tag = 1\nTag = 2", "Line 3: Tag is set twice"},
        {"Tag =", "Line 2: Tag has no value"},
        {"Tag", "Line 2: '=' expected, but there is the end of the line"},
        {"object t: TNone\nend", "Line 2: the class TNone is not registered"},
        {"object t: Tile", "Line 3: the text ends inside of s, which begins in line 1"},
        {"object s: Tile\nend", "Line 2: another object is named s"},
        {"object t: Tile\nend\nTag = 1", "Line 4: 'Tag = 1': properties of s stand before its objects"},
        {"end", "Line 3: 'end' stands behind the end of the form"},
    };
    for (const auto& [lines, message] : cases) {
        SCOPED_TRACE(lines);
        const std::string error = ErrorIn(lines);
        EXPECT_EQ(error.substr(0, std::string(message).size()), message);
        EXPECT_EQ(Tile::alive, 0) << "nothing is left";
        EXPECT_TRUE(Tile::loaded.empty());
    }
    EXPECT_EQ(Error(""), "Line 1: there is no object in the text");
    EXPECT_EQ(Error("object s: Part\nend"), "Line 1: the class Part is not registered");
}

TEST_F(FormTest, ATextCutAnywhereIsRefused)
{
    const std::size_t whole = FullForm.size() - 1; // the last line's end may be missing
    for (std::size_t size = 0; size < whole; ++size) {
        const std::string error = Error(FullForm.substr(0, size));
        EXPECT_TRUE(error.starts_with("Line ")) << size << ' ' << error;
        ASSERT_EQ(Tile::alive, 0) << size;
    }
    EXPECT_EQ(Rewritten(FullForm.substr(0, whole)), FullForm);
}

TEST_F(FormTest, ALineDroppedOrDoubledIsReadOrRefused)
{
    const std::vector<std::string> lines = LinesOf(FullForm);
    int refused = 0;
    for (std::size_t i = 0; i < lines.size(); ++i)
        for (const int copies : {0, 2}) {
            std::string text;
            for (std::size_t j = 0; j < lines.size(); ++j)
                for (int n = 0; n < (i == j ? copies : 1); ++n)
                    text += lines[j];
            Tile::loaded.clear();
            try {
                const std::string once = Rewritten(text);
                EXPECT_EQ(Rewritten(once), once);
            } catch (const EFormError& error) {
                ++refused;
                EXPECT_GT(error.Line(), 0) << error.what();
                EXPECT_TRUE(Tile::loaded.empty()) << error.what();
            }
            ASSERT_EQ(Tile::alive, 0) << lines[i];
        }
    EXPECT_GT(refused, static_cast<int>(lines.size()));
}

TEST_F(FormTest, AnErrorLeavesAnExistingRootAsItWas)
{
    Tile root(nullptr);
    root.SetName(u"own");
    (new Tile(&root))->SetName(u"kept");
    const char16_t* const texts[] = {
        u"object new: Tile\nTag = 3\nobject a: Tile\nend\nobject b: Sample\nPeer = c\nend\nend",
        u"object new: Tile\nTag = 3\nobject a: Tile\nend\nobject b: Sample\nGuarded = -1\nend\nend",
        u"object new: Tile\nTag = 3\nobject a: Tile\nend\nobject kept: Sample\nend\nend",
    };
    for (const char16_t* text : texts) {
        EXPECT_THROW(ReadForm(text, root), EFormError);
        EXPECT_EQ(root.Name(), u"own");
        EXPECT_EQ(root.Tag(), 0);
        EXPECT_EQ(root.ComponentCount(), 1);
        EXPECT_TRUE(root.children.empty());
        EXPECT_FALSE(root.InState(csLoading));
    }
    EXPECT_TRUE(Tile::loaded.empty());
}

TEST_F(FormTest, AHandlerThatFreesComponentsEndsTheReading)
{
    const StringView form = u"object f: Tile\nobject a: Sample\nGuarded = 1\nTag = 1\nend\nobject b: Tile\nend\nend";
    Sample::onGuarded = [](Sample& sample) { delete sample.Owner()->FindComponent(u"b"); };
    EXPECT_EQ(MessageOf<EFormError>([&] { MakeForm(form); }), "Line 6: b was freed while the form was read");
    Sample::onGuarded = [](Sample& sample) { delete &sample; };
    EXPECT_EQ(MessageOf<EFormError>([&] { MakeForm(form); }), "Line 4: a was freed while the form was read");
    Sample::onGuarded = [](Sample& sample) { delete sample.Owner(); };
    EXPECT_EQ(MessageOf<EFormError>([&] { MakeForm(form); }), "Line 4: a was freed while the form was read");
}

TEST_F(FormTest, DeepNestingIsRefusedBeforeItHurts)
{
    const auto nested = [](int depth) {
        std::string text;
        for (int i = 0; i < depth; ++i)
            text += "object Tile\n";
        for (int i = 0; i < depth; ++i)
            text += "end\n";
        return text;
    };
    EXPECT_EQ(LinesOf(Rewritten(nested(64))).size(), 128u);
    EXPECT_EQ(Error(nested(65)), "Line 65: objects and items lie in each other deeper than 64");
    EXPECT_EQ(Error(nested(100'000)), "Line 65: objects and items lie in each other deeper than 64");
}

} // namespace
} // namespace vorn::test

#include "tests/forms/form_fixture.h"

namespace vorn::test {
namespace {

Sample& Find(TComponent& form, StringView name)
{
    return dynamic_cast<Sample&>(*form.FindComponent(name));
}

TEST_F(FormTest, EveryKindArrives)
{
    const auto form = MakeForm(FromUtf8(FullForm), offers);
    EXPECT_EQ(form->Name(), u"form");
    EXPECT_EQ(form->Tag(), -5);
    ASSERT_EQ(form->ComponentCount(), 5);
    const Sample& first = Find(*form, u"first");
    const Sample& second = Find(*form, u"second");
    EXPECT_FALSE(first.flag);
    EXPECT_EQ(first.byte, 255);
    EXPECT_EQ(first.small, -32768);
    EXPECT_EQ(first.color, 0x00FF8001u);
    EXPECT_EQ(first.ratio, -0.1);
    EXPECT_EQ(first.text, u"it's\r\ncaf\u00E9\U0001F600");
    EXPECT_EQ(first.mood, Mood::Wild);
    EXPECT_EQ(first.marks, 5);
    EXPECT_EQ(first.place, (TPoint{3, -5}));
    EXPECT_EQ(first.part.link, form.get());
    EXPECT_EQ(first.part.inner.depth, 9);
    ASSERT_EQ(first.entries.Count(), 2);
    EXPECT_EQ(dynamic_cast<Entry&>(*first.entries.Items(0)).Link(), &second);
    EXPECT_EQ(dynamic_cast<Entry&>(*first.entries.Items(1)).number, 7);
    EXPECT_EQ(first.lines.Text(), u"one\r\n\r\n  three\r\n");
    EXPECT_EQ(first.peer, &second);
    EXPECT_EQ(second.color, 0xFFu);

    const auto& cup = dynamic_cast<Tile&>(*form->FindComponent(u"cup"));
    EXPECT_EQ(cup.below, form->FindComponent(u"carpet"));
    EXPECT_EQ(cup.below->below, form.get());

    Raise(first.OnOpen, form.get());
    EXPECT_EQ(opened, std::vector<TObject*>{form.get()});
    bool handled = false;
    Raise(first.OnChange, form.get(), 1, handled);
    EXPECT_TRUE(handled);
}

TEST_F(FormTest, ComponentsLoadUntilTheWholeFormIsThere)
{
    Sample::onGuarded = [](Sample& sample) {
        EXPECT_NE(sample.Owner()->FindComponent(u"b"), nullptr) << "all components exist by now";
        EXPECT_TRUE(Tile::loaded.empty());
    };
    const auto form = MakeForm(u"object f: Tile\nobject a: Sample\nGuarded = 1\nend\nobject b: Tile\nend\nend\n");
    EXPECT_TRUE(Find(*form, u"a").wasLoading);
    EXPECT_EQ(Tile::loaded, (std::vector<String>{u"a", u"b", u"f"}));
    for (const TComponent* each : {form.get(), form->Components(0), form->Components(1)})
        EXPECT_FALSE(each->InState(csLoading));
}

TEST_F(FormTest, BlanksCaseAndLineEndsDoNotMatter)
{
    Sample sample(nullptr);
    ReadForm(u"\n\t object  S :sAmple\r\n\r\n COUNT=+0x10 \r Place =( 1 ,2 )\n\nMarks=[ mksecond,2 ]\r\n"
             u"Ratio = 3\nMood = keen\nText = 'caf\u00E9'#9''''\n end",
        sample);
    EXPECT_EQ(sample.Name(), u"S");
    EXPECT_EQ(sample.count, 16);
    EXPECT_EQ(sample.place, (TPoint{1, 2}));
    EXPECT_EQ(sample.marks, 6);
    EXPECT_EQ(sample.ratio, 3);
    EXPECT_EQ(sample.mood, Mood::Keen);
    EXPECT_EQ(sample.text, u"caf\u00E9\t'");
}

TEST_F(FormTest, AnExistingRootIsFilledAndKeepsWhatItHas)
{
    Tile own(nullptr);
    auto* before = new Tile(&own);
    before->SetName(u"before");
    ReadForm(u"object form: Tile\nobject s: Sample\nPeer = s\nPart.Link = before\nend\nend\n", own, offers);
    EXPECT_EQ(own.Name(), u"form");
    EXPECT_EQ(own.ComponentCount(), 2);
    EXPECT_EQ(Find(own, u"s").part.link, before);
    EXPECT_FALSE(before->InState(csLoading));

    // Of a derived class that nobody registered, and with a property of its own class's.
    class Derived : public Sample {
        using Sample::Sample;
    } derived(nullptr);
    ReadForm(u"object d: Tile\nCount = 3\nend\n", derived);
    EXPECT_EQ(derived.count, 3);
    EXPECT_EQ(MessageOf<EFormError>([&] { ReadForm(u"object d: Sample\nend\n", own); }),
        "Line 1: the form is a Sample, not a Tile");
}

TEST_F(FormTest, ReferencesReachOtherForms)
{
    Tile data(nullptr);
    data.SetName(u"data");
    auto* rows = new Tile(&data);
    rows->SetName(u"rows");
    auto* deeper = new Tile(rows);
    deeper->SetName(u"deeper");
    offers.OfferForm(data);
    const auto form = MakeForm(u"object s: Sample\n  Count = 0\n  Part.Text = ''\n  Part.Link = data.rows.deeper\n"
                               u"  Entries = <>\n  Lines = ()\n  Peer = s\nend\n",
        offers);
    EXPECT_EQ(dynamic_cast<Sample&>(*form).part.link, deeper);
    EXPECT_EQ(dynamic_cast<Sample&>(*form).peer, form.get());
    EXPECT_NE(WriteForm(*form).find(u"Part.Link = data.rows.deeper\n"), String::npos);
}

TEST_F(FormTest, NilAndNeverStoredPropertiesAreRead)
{
    Sample sample(nullptr);
    sample.peer = &sample;
    sample.OnOpen = [](TObject*) {};
    ReadForm(u"object Sample\nPeer = nil\nOnOpen = nil\nAmount = 8\nend", sample);
    EXPECT_EQ(sample.peer, nullptr);
    EXPECT_FALSE(sample.OnOpen);
    EXPECT_EQ(sample.count, 8);
}

} // namespace
} // namespace vorn::test

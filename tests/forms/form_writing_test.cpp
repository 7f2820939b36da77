#include "tests/forms/form_fixture.h"

#include <cmath>
#include <limits>

namespace vorn::test {
namespace {

TEST_F(FormTest, WhatIsWrittenIsReadBackAndWrittenTheSame)
{
    EXPECT_EQ(Rewritten(FullForm), FullForm);
}

TEST_F(FormTest, DefaultsAndEmptyReferencesAndEventsAreNotWritten)
{
    const std::string plain = R"(object Sample
  Count = 0
  Part.Text = ''
  Entries = <>
  Lines = ()
end
)";
    Sample sample(nullptr);
    EXPECT_EQ(Utf8(WriteForm(sample)), plain);
    sample.OnOpen = [](TObject*) {};
    EXPECT_EQ(Utf8(WriteForm(sample)), plain) << "a handler without a name can't be bound again";
    EXPECT_EQ(Rewritten(plain), plain);
}

TEST_F(FormTest, FloatsComeBackExactly)
{
    Sample sample(nullptr);
    Sample read(nullptr);
    const double values[]
        = {0.1, -1.0 / 3, 1e300, 5e-324, 123456789012345678.0, 1e15, -0.00001, std::numeric_limits<double>::max(),
            std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
    for (const double value : values) {
        sample.ratio = value;
        ReadForm(WriteForm(sample), read);
        EXPECT_EQ(read.ratio, value);
    }
    sample.ratio = std::nan("");
    ReadForm(WriteForm(sample), read);
    EXPECT_TRUE(std::isnan(read.ratio));
}

TEST_F(FormTest, EveryCharacterComesBack)
{
    Sample sample(nullptr);
    Sample read(nullptr);
    for (int c = 0; c < 0x10000; c += c < 0x300 ? 1 : 0x101) {
        const String text = {u'a', static_cast<char16_t>(c), u'\'', static_cast<char16_t>(c)};
        sample.text = text;
        const String form = WriteForm(sample);
        EXPECT_EQ(form.find_first_not_of(u"\n !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`"
                                         u"abcdefghijklmnopqrstuvwxyz{|}~"),
            String::npos)
            << c;
        ReadForm(form, read);
        EXPECT_EQ(read.text, text) << c;
    }
}

TEST_F(FormTest, OrderOnTheParentIsKeptAndWhatOthersOwnIsLeftOut)
{
    Tile form(nullptr);
    auto add = [&](TComponent* owner, StringView name, Tile* below) {
        auto* tile = new Tile(owner);
        tile->SetName(name);
        tile->LieOn(below);
        return tile;
    };
    Tile* low = add(&form, u"low", &form);
    Tile* high = add(&form, u"high", &form);
    add(&form, u"loose", nullptr);
    add(high, u"part", high);
    low->LieOn(&form); // now the topmost
    const std::string text = Utf8(WriteForm(form));
    EXPECT_EQ(text,
        "object Tile\n  object high: Tile\n  end\n  object low: Tile\n  end\n  object loose: Tile\n"
        "  end\nend\n");
}

TEST_F(FormTest, WhatCouldNotBeReadBackIsRefused)
{
    class Stranger : public Tile {
        using Tile::Tile;
    };
    Tile other(nullptr);
    const auto error = [](const TComponent& form) { return MessageOf<EFormError>([&] { WriteForm(form); }); };
    {
        Tile form(nullptr);
        (new Stranger(&form))->SetName(u"odd");
        EXPECT_EQ(error(form), "the class Stranger of odd is not registered");
    }
    {
        Tile form(nullptr);
        (new Tile(&form))->SetName(u"a b");
        EXPECT_EQ(error(form), "'a b' can't stand as a name in a form file");
    }
    {
        Tile form(nullptr);
        (new Sample(&form))->part.link = &other;
        EXPECT_EQ(error(form), "Part.Link: what it refers to has no name");
    }
    {
        Tile form(nullptr);
        form.SetName(u"form");
        auto* inside = new Sample(&form);
        inside->SetName(u"Form");
        EXPECT_EQ(error(form), "the form and a component in it are both named form");
        // Of another form, by a name that this form would take for its own.
        inside->SetName(u"data");
        Tile data(nullptr);
        auto* rows = new Tile(&data);
        rows->SetName(u"rows");
        inside->part.link = rows;
        data.SetName(u"Data");
        EXPECT_EQ(error(form), "Part.Link: Data.rows isn't part of the form, which has a Data of its own");
        data.SetName(u"FORM");
        EXPECT_EQ(error(form), "Part.Link: FORM.rows isn't part of the form, which has a FORM of its own");
        data.SetName(u"others");
        EXPECT_NE(WriteForm(form).find(u"Part.Link = others.rows\n"), String::npos);
    }
    {
        Tile form(nullptr);
        auto* tile = new Tile(&form);
        tile->LieOn(&other);
        EXPECT_EQ(error(form), "a Tile lies on a Tile, which isn't part of the form");
    }
}

} // namespace
} // namespace vorn::test

#include "tests/support/chart_fixture.h"

#include <numeric>

namespace vorn {
namespace {

using namespace test;

class ZoneText : public ChartFixture {
protected:
    std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (int i = 0; i < chart->NomiZoneList().Count(); ++i)
            names.push_back(ToUtf8(chart->NomiZoneList()[i]));
        return names;
    }
    std::string Zone(int index) const
    {
        const TZone& z = *chart->ZoneList()[index];
        std::string text;
        for (const int n : {z.rect.Left, z.rect.Top, z.rect.Right, z.rect.Bottom, z.dir, z.pt.X, z.pt.Y})
            text += std::to_string(n) + ' ';
        return text + '"' + ToUtf8(z.numZona) + '"';
    }
};

TEST_F(ZoneText, EachLineIsOneZone)
{
    struct Case {
        StringView Line;
        const char* Zone;
    };
    const Case cases[] = {
        {u"2 10 41 32 3 3 34 GL", "2 10 41 32 3 3 34 \"GL\""},
        {u"-5 10 41 32 0 -3 34 18", "-5 10 41 32 0 -3 34 \"18\""},
        {u"1 2 3 4 1 5 6 11 12 ", "1 2 3 4 1 5 6 \"11 12 \""},
        {u"1 2 3 4 1 5 11", "1 2 3 4 1 5 0 \"11\""},
        {u"7 9", "7 0 0 0 0 0 0 \"9\""},
        {u"GL", "0 0 0 0 0 0 0 \"GL\""},
        {u"", "0 0 0 0 0 0 0 \"\""},
        {u"1  3 4 1 5 6 11", "1 0 3 4 1 5 6 \"11\""},
        {u"uno due 3 4 su 5 6 11", "0 0 3 4 0 5 6 \"11\""},
        {u"40 30 20 10 9 5 6 11", "40 30 20 10 9 5 6 \"11\""},
    };
    for (const Case& c : cases) {
        // The line between two others: it must neither swallow nor add one.
        ShowBackground(u"; commento\n1 2 3 4 1 5 6 11;\n1 1 1 1 1 1 1 A\n" + String(c.Line) + u"\n1 1 1 1 1 1 1 B");
        ASSERT_EQ(chart->ZoneList().Count(), 3) << Utf8(c.Line);
        EXPECT_EQ(Zone(1), c.Zone) << Utf8(c.Line);
        EXPECT_EQ(chart->ZoneList()[1]->rectOffeset, chart->ZoneList()[1]->rect);
    }
}

TEST_F(ZoneText, NoZonesMeansTheGeneralZoneAlone)
{
    for (const StringView text : {u"", u"; solo un commento\n;"}) {
        ShowBackground(Blob(Picture(4, 4, clWhite)), text, u"18 17");
        ASSERT_EQ(chart->ZoneList().Count(), 1);
        EXPECT_EQ(Zone(0), "2 10 41 32 3 3 34 \"GL\"");
        EXPECT_EQ(Names(), std::vector<std::string>{"GL"});
    }
}

TEST_F(ZoneText, NamesAreFlattenedInReadingOrder)
{
    struct Case {
        StringView Text;
        std::vector<std::string> Names;
    };
    const Case cases[] = {
        {u"18 17\r\n48", {"18", "17", "48"}},
        {u"18 17 ", {"18", "17"}},
        {u"18\n\n17", {"18", "17"}},
        {u"18  17", {"18", "", "17"}},
        {u" 18", {"", "18"}},
        {u"   ", {"", "", ""}},
    };
    for (const Case& c : cases) {
        ShowBackground(Blob(Picture(4, 4, clWhite)), Zones, c.Text);
        EXPECT_EQ(Names(), c.Names) << '"' << Utf8(c.Text) << '"';
    }

    ShowBackground(Zones); // without names of its own
    ASSERT_EQ(Names().size(), 55u);
    EXPECT_EQ(Names().front() + Names()[16] + Names()[32] + Names().back(), "1848GL75");
}

/// Which zone answers to a click, asked of the whole chart by mouse.
class ZoneClicks : public ZoneText {
protected:
    ZoneClicks()
    {
        chart->OnZoneClick = [this](TObject* sender) { hits.push_back(Utf8(static_cast<TZone*>(sender)->numZona)); };
    }
    std::string Hit(int x, int y)
    {
        hits.clear();
        ClickView({x, y});
        return std::accumulate(hits.begin(), hits.end(), std::string());
    }
    std::vector<std::string> hits;
};

TEST_F(ZoneClicks, LeftAndTopEdgeBelongToTheZoneRightAndBottomDoNot)
{
    EXPECT_EQ(Hit(10, 10), "11");
    EXPECT_EQ(Hit(39, 39), "11");
    EXPECT_EQ(Hit(40, 39), "");
    EXPECT_EQ(Hit(39, 40), "");
    EXPECT_EQ(Hit(9, 10), "");
    EXPECT_EQ(Hit(10, 9), "");
}

TEST_F(ZoneClicks, OverlappingZonesTheLaterIsHitTheEarlierIsFoundByName)
{
    ShowBackground(u"10 10 60 60 2 100 20 sotto\n20 20 50 50 2 100 90 SOPRA\n20 20 50 50 2 100 120 sopra\n90 "
                   u"90 20 20 2 1 1 no");
    EXPECT_EQ(Hit(12, 12), "sotto");
    EXPECT_EQ(Hit(30, 30), "sopra");
    EXPECT_EQ(Hit(50, 50), "sotto") << "an inside-out zone never hits";
    ShowTreatments({{.Id = 1, .Dente = u"sopra"}});
    EXPECT_EQ(Label(1)->Top(), 90);
}

TEST_F(ZoneClicks, ZonesMoveWithTheChart)
{
    ShowTreatments({{.Id = 1, .X = -30, .Y = -7}});
    ASSERT_EQ(chart->OffsetX(), -30);
    ASSERT_EQ(chart->OffsetY(), -7);
    // Zone 21 is stored with its left top corner at (110, 10).
    EXPECT_EQ(Hit(139, 17), "");
    EXPECT_EQ(Hit(140, 16), "");
    EXPECT_EQ(Hit(140, 17), "21");
    EXPECT_EQ(Hit(169, 46), "21");
    EXPECT_EQ(Hit(170, 46), "");
    chart->ZoomIn();
    EXPECT_EQ(Hit(153, 30), "");
    EXPECT_EQ(Hit(155, 30), "21") << "the hit test undoes the zoom";
}

} // namespace
} // namespace vorn

#include "tests/support/chart_fixture.h"

namespace vorn {
namespace {

using namespace test;

class Layout : public ChartFixture {
protected:
    TRect LabelRect(int key) const { return Label(key)->BoundsRect(); }
    TPoint Origin() const { return {view->GetLayer(0).GetPosX(), view->GetLayer(0).GetPosY()}; }
    void ExpectZonesFollowTheOffsets()
    {
        for (const TZone* zone : chart->ZoneList()) {
            TRect moved = zone->rect;
            OffsetRect(moved, -chart->OffsetX(), -chart->OffsetY());
            EXPECT_EQ(zone->rectOffeset, moved) << Utf8(zone->numZona);
        }
    }
};

TEST_F(Layout, WhatLiesLeftOrAboveShiftsEverything)
{
    ShowTreatments({{.Id = 1, .X = -25, .Y = 30}, {.Id = 2, .Dente = u"12", .X = 40, .Y = -9}, {.Id = 3}});
    EXPECT_EQ(chart->OffsetX(), -25);
    EXPECT_EQ(chart->OffsetY(), -9);
    EXPECT_EQ(LabelRect(1).Left, 0);
    EXPECT_EQ(LabelRect(1).Top, 39);
    EXPECT_EQ(LabelRect(2).Left, 65);
    EXPECT_EQ(LabelRect(2).Top, 0);
    EXPECT_EQ(LabelRect(3).Left, 40);
    EXPECT_EQ(Origin(), (TPoint{25, 9}));
    EXPECT_EQ(chart->MaxRect, (TRect{0, 0, 225, 159}));
    EXPECT_EQ(Record(1)->X, -25);
    ExpectZonesFollowTheOffsets();

    // A rebuild measures from scratch, and once nothing lies outside all is back in place.
    chart->CreaCollection();
    EXPECT_EQ(chart->OffsetX(), -25);
    EXPECT_EQ(LabelRect(1).Left, 0);
    EXPECT_EQ(Origin(), (TPoint{25, 9}));
    ExpectZonesFollowTheOffsets();
    ShowTreatments({{.Id = 1}});
    EXPECT_EQ(Origin(), (TPoint{0, 0}));
    EXPECT_EQ(chart->MaxRect, (TRect{0, 0, 200, 150}));
    ExpectZonesFollowTheOffsets();
}

TEST_F(Layout, WhatLiesRightOrBelowWidensWithoutAnOffset)
{
    ShowTreatments({{.Id = 1, .X = 195, .Y = 148}});
    EXPECT_EQ(chart->OffsetX(), 0);
    EXPECT_EQ(chart->MaxRect, (TRect{0, 0, LabelRect(1).Right, LabelRect(1).Bottom}));
    EXPECT_GT(LabelRect(1).Right, 200);
    EXPECT_EQ(view->Width(), LabelRect(1).Right);
    EXPECT_EQ(view->Height(), LabelRect(1).Bottom);
}

TEST_F(Layout, SymbolLayersCountAndCanBeHiddenOtherLayersDoNot)
{
    ShowTreatments({{.Id = 1}});
    const int other = view->LayersAdd(10, 10, -50, 0);
    const int symbol = view->LayersAdd(10, 10, 0, -6);
    view->GetLayer(symbol).UserDataLen = SymbolLayerMark;
    chart->AdjustBounds();
    EXPECT_EQ(chart->OffsetX(), 0);
    EXPECT_EQ(chart->OffsetY(), -6);
    EXPECT_EQ(view->GetLayer(symbol).GetPosY(), 0);
    EXPECT_EQ(view->GetLayer(other).GetPosY(), 6) << "every layer moves along";
    EXPECT_EQ(chart->MaxRect, (TRect{0, 0, 200, 156}));
    for (const bool shown : {false, true}) {
        chart->SetEnabledDib(shown);
        EXPECT_EQ(view->GetLayer(symbol).Visible(), shown);
        EXPECT_TRUE(view->GetLayer(other).Visible());
        EXPECT_TRUE(view->GetLayer(0).Visible());
    }
}

/// The picture is 200 by 150; what lies outside it, if anything, makes the chart 225 by 150.
TEST_F(Layout, TheParentDecidesTheSizeOfTheView)
{
    struct Case {
        int Width, Height;
        bool Outside;
        int ViewWidth, ViewHeight;
    };
    const Case cases[] = {{400, 300, false, 200, 150}, {400, 100, false, 400, 150}, {120, 300, false, 200, 300},
        {120, 100, false, 200, 150}, {200, 300, false, 200, 300}, // no wider than the picture, so not roomy
        {400, 300, true, 400, 300}, {400, 100, true, 400, 150}, {120, 100, true, 225, 150}};
    for (const bool scrolls : {true, false}) {
        for (const Case& c : cases) {
            if (!scrolls && c.Outside)
                continue;
            SCOPED_TRACE(std::to_string(c.Width) + 'x' + std::to_string(c.Height) + (c.Outside ? " outside" : ""));
            ShowTreatments({});
            const auto parent
                = scrolls ? std::make_unique<TScrollBox>(nullptr) : std::make_unique<TWinControl>(nullptr);
            parent->SetBounds(0, 0, c.Width, c.Height);
            // What takes room from the children, such as a border, counts as well.
            parent->SetBounds(0, 0, 2 * c.Width - parent->ClientWidth(), 2 * c.Height - parent->ClientHeight());
            view->SetParent(parent.get());
            ShowTreatments({{.Id = 1, .X = c.Outside ? -25 : 20, .Y = 30}});
            EXPECT_EQ(view->Left(), 0);
            // Where the view fills a scroll box, the bar for the other direction takes its share.
            EXPECT_EQ(view->Width(), c.ViewWidth == c.Width ? parent->ClientWidth() : c.ViewWidth);
            EXPECT_EQ(view->Height(), c.ViewHeight == c.Height ? parent->ClientHeight() : c.ViewHeight);
            view->SetParent(nullptr);
        }
    }
}

TEST_F(Layout, ZoomGoesInStepsFromItsNaturalSize)
{
    ShowTreatments({{.Id = 1}});
    Label(1)->SetLeft(1);
    chart->ZoomOut();
    chart->ZoomReset();
    EXPECT_EQ(chart->CurrentZoom(), 100);
    EXPECT_EQ(Label(1)->Left(), 1) << "nothing is placed anew";
    chart->ZoomIn();
    chart->ZoomIn();
    EXPECT_EQ(chart->CurrentZoom(), 120);
    EXPECT_EQ(view->Zoom(), 120);
    chart->ZoomOut();
    EXPECT_EQ(chart->CurrentZoom(), 110);
    chart->ZoomReset();
    EXPECT_EQ(view->Zoom(), 100);
    EXPECT_EQ(Label(1)->Left(), 15);
}

TEST_F(Layout, ZoomPlacesLabelsByPercentTruncatedTowardsZero)
{
    ShowTreatments({{.Id = 1, .X = 33, .Y = 45}});
    const TRect natural = LabelRect(1);
    chart->ZoomIn();
    EXPECT_EQ(LabelRect(1), Bounds(36, 49, natural.Width(), natural.Height()));
    EXPECT_EQ(view->Width(), 220);
    EXPECT_EQ(view->Height(), 165);
    EXPECT_EQ(Record(1)->boundRect, natural);

    // A label as it was read, before the chart was shifted for it.
    ShowTreatments({{.Id = 1, .X = -5, .Y = -7}});
    while (chart->CurrentZoom() < 150)
        chart->ZoomIn();
    EXPECT_EQ(LabelRect(1).Left, -7);
    EXPECT_EQ(LabelRect(1).Top, -10);
}

TEST_F(Layout, WhatIsReadUnderAZoomIsBackInItsPlaceAtEveryOther)
{
    const auto places = [&] {
        std::vector<std::pair<int, int>> found;
        for (const int key : {1, 2, 3, 4, 5})
            found.emplace_back(LabelRect(key).Left, LabelRect(key).Top);
        return found;
    };
    const auto zoomTo = [&](int percent) {
        chart->ZoomReset();
        while (chart->CurrentZoom() < percent)
            chart->ZoomIn();
        return places();
    };
    // On a zone, beside a neighbour, on a stored place, and with what shifts the chart.
    for (const int beyond : {7, -25}) {
        ShowTreatments({{.Id = 1}, {.Id = 2, .Dente = u"21"}, {.Id = 3, .Dente = u"21", .Terapia = u"Tre"},
            {.Id = 4, .Dente = u"22"}, {.Id = 5, .X = beyond, .Y = 90}});
        const auto at170 = zoomTo(170);
        const auto at100 = zoomTo(100);
        EXPECT_EQ(at100[0], std::pair(15, 60));
        zoomTo(200);
        for (const int key : {1, 2, 3, 4})
            Change(key, u"Terapia", String(u"Altra"));
        EXPECT_EQ(zoomTo(170), at170);
        EXPECT_EQ(zoomTo(100), at100);

        // A tooth changed under a zoom: where a rebuild would place it.
        zoomTo(200);
        Change(1, u"Dente", String(u"21"));
        EXPECT_EQ(zoomTo(100)[0], std::pair(at100[2].first + LabelRect(3).Width() + 4, 60));
        zoomTo(150);
        Change(1, u"X", std::int64_t{33});
        Change(1, u"Y", std::int64_t{44});
        EXPECT_EQ(zoomTo(100)[0], std::pair(33 - chart->OffsetX(), 44)) << "a stored place is the chart's at any zoom";
        EXPECT_EQ(Record(1)->boundOffset, (TPoint{chart->OffsetX(), 0}));
    }
}

TEST_F(Layout, ARebuildKeepsTheZoomAndPlacesAtNaturalSize)
{
    ShowTreatments({{.Id = 1}});
    chart->ZoomIn();
    EXPECT_EQ(LabelRect(1).Left, 16);
    chart->CreaCollection();
    EXPECT_EQ(chart->CurrentZoom(), 110);
    EXPECT_EQ(view->Zoom(), 110);
    EXPECT_EQ(LabelRect(1).Left, 15);
}

} // namespace
} // namespace vorn

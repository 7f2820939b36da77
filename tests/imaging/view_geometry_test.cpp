#include "platform/system/exceptions.h"
#include "tests/imaging/pictures.h"

#include <gtest/gtest.h>

#include <limits>

namespace vorn::test {

TEST(ViewStackTest, AddsRemovesAndClears)
{
    TImageEnView view(nullptr);
    EXPECT_EQ(view.GetLayersCount(), 1);
    TIEBitmap source;
    SetPicture(source, Numbered(3, 2));
    EXPECT_EQ(view.LayersAdd(source), 1);
    source.Fill(clRed);
    EXPECT_EQ(view.Bitmap().Image(), Numbered(3, 2));
    EXPECT_EQ(view.LayersAdd(5, 6, 7, 8), 2);
    EXPECT_EQ(view.GetCurrentLayer().ChartBox(), Bounds(7, 8, 5, 6));

    auto data = std::make_shared<int>(1);
    view.GetLayer(1).UserData = data;
    view.LayersRemove(1); // the current one stays current
    EXPECT_EQ(data.use_count(), 1);
    EXPECT_EQ(view.LayersCurrent(), 1);
    EXPECT_EQ(view.Bitmap().Width(), 5);
    EXPECT_THROW(view.LayersRemove(0), EInvalidOperation);
    EXPECT_THROW(view.GetLayer(2), EListError);
    EXPECT_THROW(view.SetLayersCurrent(-1), EListError);

    TIELayer& picture = view.GetLayer(0);
    picture.Bitmap().Allocate(10, 10);
    picture.SetPosX(5);
    picture.SetWidth(30);
    picture.SetOpacity(7);
    view.LayersClear();
    EXPECT_EQ(view.GetLayersCount(), 1);
    EXPECT_EQ(picture.ChartBox(), Bounds(0, 0, 10, 10));
    EXPECT_EQ(picture.Opacity(), 255);
}

TEST(ViewGeometryTest, ConvertsBetweenViewAndChart)
{
    struct Case {
        int Zoom, Offset, View, Chart;
    };
    // The fifth is -1.5, rounded down.
    const Case cases[] = {{100, 0, 17, 17}, {100, -30, 17, -13}, {200, 0, 7, 3}, {150, 0, 1, 0}, {200, 5, -8, -2},
        {150, 0, 2, 1}, {33, 10, 0, 30}};
    TImageEnView view(nullptr);
    for (const Case& c : cases) {
        view.ZoomAt(0, 0, c.Zoom, false);
        view.SetViewOffset({c.Offset, c.Offset});
        EXPECT_EQ(view.XScr2Bmp(c.View), c.Chart) << c.Zoom;
        EXPECT_EQ(view.YScr2Bmp(c.View), c.Chart) << c.Zoom;
    }
    view.ZoomAt(0, 0, 150, false);
    view.SetViewOffset({10, 20});
    EXPECT_EQ(view.ChartToView({-3, 3, 5, 7}), (TRect{-15, -16, -3, -10}));
}

TEST(ViewGeometryTest, ZoomKeepsThePointOrCentresIt)
{
    TImageEnView view(nullptr);
    view.SetBounds(0, 0, 100, 60);
    std::vector<int> changes;
    view.OnViewChange = [&](TObject*, int change) { changes.push_back(change); };
    view.ZoomAt(40, 20, 200, false);
    EXPECT_EQ(view.ViewOffset(), (TPoint{40, 20}));
    EXPECT_EQ(view.XScr2Bmp(40), 40);
    view.ZoomAt(40, 20, 100, true); // chart point (40, 20) to the middle
    EXPECT_EQ(view.XScr2Bmp(50), 40);
    EXPECT_EQ(view.YScr2Bmp(30), 20);
    view.ZoomAt(0, 0, -5, false);
    EXPECT_EQ(view.Zoom(), 1);
    view.ZoomAt(0, 0, 1, false);
    view.SetViewOffset({1, 1});
    EXPECT_EQ(changes, (std::vector<int>{1, 1, 1, 0}));
}

TEST(ViewGeometryTest, FindsLayersByTheirTurnedOutline)
{
    TImageEnView view(nullptr);
    view.Bitmap().Allocate(200, 200);
    view.LayersAdd(40, 10, 50, 50); // about (70, 55)
    TIELayer& bar = view.GetLayer(1);
    EXPECT_EQ(view.FindLayerAt(50, 50, true), 1);
    EXPECT_EQ(view.FindLayerAt(89, 59, true), 1);
    EXPECT_EQ(view.FindLayerAt(90, 59, true), 0);
    bar.SetRotate(90);
    EXPECT_EQ(bar.ChartBox(), (TRect{65, 35, 75, 75}));
    EXPECT_EQ(view.FindLayerAt(50, 50, true), 0);
    EXPECT_EQ(view.FindLayerAt(70, 36, true), 1);
    bar.SetRotate(45); // counter-clockwise: from bottom left to top right
    EXPECT_EQ(view.FindLayerAt(80, 45, true), 1);
    EXPECT_EQ(view.FindLayerAt(60, 65, true), 1);
    EXPECT_EQ(view.FindLayerAt(80, 65, true), 0);
    bar.SetSelectable(false);
    EXPECT_EQ(view.FindLayerAt(80, 45, true), 0);
    EXPECT_EQ(view.FindLayerAt(80, 45, false), 1);
    bar.SetVisible(false);
    EXPECT_EQ(view.FindLayerAt(80, 45, false), 0);
    EXPECT_EQ(view.FindLayerAt(200, 0, false), -1);
}

TEST(ViewGeometryTest, AbsurdPlacesAreHarmless)
{
    TImageEnView view(nullptr);
    view.SetBounds(0, 0, 20, 20);
    constexpr int lowest = std::numeric_limits<int>::min(), highest = std::numeric_limits<int>::max();
    for (const int place : {lowest, highest}) {
        view.LayersAdd(4, 4, place, place);
        TIELayer& layer = view.GetCurrentLayer();
        layer.SetWidth(highest);
        layer.SetHeight(highest);
        layer.SetRotate(33);
        layer.SetRotate(std::numeric_limits<double>::infinity());
        EXPECT_EQ(layer.GetRotate(), 33);
        view.ZoomAt(highest, lowest, highest, false);
        EXPECT_GE(layer.Box().Width(), 0);
        view.SetViewOffset({place, place});
        view.XScr2Bmp(place);
        PictureOf(view);
        view.ZoomAt(0, 0, 100, false);
        layer.SetWidth(-5);
        EXPECT_EQ(layer.GetWidth(), 0);
    }
}

} // namespace vorn::test

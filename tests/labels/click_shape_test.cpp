#include "tests/labels/label_fixture.h"

namespace vorn {
namespace {

using ClickShape = LabelTest;

TEST_F(ClickShape, IsInvisibleAndTakesClicks)
{
    const QImage empty = Screen();
    auto* shape = new TClickShape(nullptr);
    shape->SetParent(view.get());
    shape->SetBounds(10, 10, 50, 50);
    EXPECT_EQ(Screen(), empty);
    EXPECT_EQ(shape->Cursor(), crHandPoint);

    int clicks = 0;
    shape->Events().OnClick = [&](TObject* sender) { clicks += sender == shape; };
    mouse.Click(*view, {59, 59});
    EXPECT_EQ(clicks, 1);
    mouse.Click(*view, {60, 59});
    EXPECT_EQ(clicks, 1);
}

TEST_F(ClickShape, CanBeMadeVisible)
{
    auto* shape = new TClickShape(nullptr);
    shape->SetParent(view.get());
    shape->SetBounds(10, 10, 50, 30);
    shape->Pen().SetStyle(TPenStyle::psSolid);
    shape->Pen().SetColor(clRed);
    struct Case {
        TShapeType Shape;
        TRect Box;     // of what is drawn
        bool Cornered; // reaches the corners of the box
    };
    for (const auto& [type, box, cornered] :
        {Case{TShapeType::stRectangle, {10, 10, 60, 40}, true}, {TShapeType::stSquare, {20, 10, 50, 40}, true},
            {TShapeType::stEllipse, {10, 10, 60, 40}, false}, {TShapeType::stCircle, {20, 10, 50, 40}, false}}) {
        SCOPED_TRACE(static_cast<int>(type));
        shape->SetShape(type);
        shape->Brush().SetStyle(TBrushStyle::bsClear);
        const QImage outline = Screen();
        EXPECT_EQ(outline.pixel(box.Left, 25), Rgb(clRed));
        EXPECT_EQ(outline.pixel(35, box.Bottom - 1), Rgb(clRed));
        EXPECT_NE(outline.pixel(box.Left - 1, 25), Rgb(clRed));
        EXPECT_EQ(outline.pixel(box.Right - 1, box.Top) == Rgb(clRed), cornered);
        EXPECT_EQ(outline.pixel(35, 25), Rgb(clBlue)) << "clear inside";
        shape->Brush().SetStyle(TBrushStyle::bsSolid);
        EXPECT_EQ(Screen().pixel(35, 25), Rgb(clWhite));
    }
}

} // namespace
} // namespace vorn

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

} // namespace
} // namespace vorn

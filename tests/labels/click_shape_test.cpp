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

TEST_F(ClickShape, ZoneIsItsHintButNotTheOtherWayRound)
{
    TClickShape shape(nullptr);
    shape.SetZona(u"18");
    EXPECT_EQ(shape.zona(), u"18");
    EXPECT_EQ(shape.Hint(), u"18");
    shape.SetHint(u"Dente del giudizio");
    EXPECT_EQ(shape.zona(), u"18");
}

} // namespace
} // namespace vorn

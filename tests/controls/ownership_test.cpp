#include "platform/system/exceptions.h"
#include "tests/controls/blocks.h"

#include <QtWidgets/QVBoxLayout>
#include <QtWidgets/QWidget>

#include <gtest/gtest.h>

namespace vorn::test {

TEST(OwnershipTest, OwnerAndParentEachFreeOnceWhoeverGoesFirst)
{
    int freed = 0;
    const auto build = [&](TComponent& owner, TWinControl& parent) {
        for (int i = 0; i < 3; ++i)
            (new Block(&owner, parent, Bounds(0, 0, 9, 9), clRed))->OnFree = [&] { ++freed; };
    };
    auto owner = std::make_unique<TComponent>();
    auto parent = std::make_unique<TWinControl>(nullptr);
    build(*owner, *parent);
    owner.reset();
    EXPECT_EQ(freed, 3);
    EXPECT_EQ(parent->ControlCount(), 0);
    EXPECT_EQ(parent->ControlAt({1, 1}), nullptr);
    owner = std::make_unique<TComponent>();
    build(*owner, *parent);
    parent.reset();
    EXPECT_EQ(freed, 6);
    EXPECT_EQ(owner->ComponentCount(), 0);
    {
        TWinControl both(nullptr);
        build(both, both);
        auto* inner = new TWinControl(&both);
        inner->SetParent(&both);
        build(both, *inner);
    }
    EXPECT_EQ(freed, 12);
}

TEST(OwnershipTest, SurvivesTheWindowThatQtDestroys)
{
    auto outer = std::make_unique<QWidget>();
    TWinControl control(nullptr);
    auto* inner = new TWinControl(&control);
    inner->SetParent(&control);
    auto* block = new Block(*inner, Bounds(0, 0, 10, 10), clRed);
    (new QVBoxLayout(outer.get()))->addWidget(control.Widget());
    outer.reset();

    EXPECT_EQ(control.Widget(), nullptr);
    EXPECT_EQ(inner->Widget(), nullptr);
    control.SetBounds(1, 2, 30, 40);
    control.SetVisible(false);
    control.SetEnabled(false);
    control.SetCursor(crHandPoint);
    control.Repaint();
    block->SetBounds(5, 5, 10, 10);
    block->Repaint();
    EXPECT_EQ(control.Width(), 30);
    EXPECT_EQ(inner->ControlAt({6, 6}), block);
    inner->SetBounds(0, 0, 20, 20);
    EXPECT_EQ(PictureOf(*inner).pixel(6, 6), qRgb(255, 0, 0));
    inner->SetParent(nullptr);
    EXPECT_EQ(control.ControlCount(), 0);
}

TEST(OwnershipTest, RefusesToLieInsideItself)
{
    TWinControl outer(nullptr);
    auto* inner = new TWinControl(nullptr);
    inner->SetParent(&outer);
    EXPECT_THROW(outer.SetParent(inner), EInvalidOperation);
    EXPECT_THROW(outer.SetParent(&outer), EInvalidOperation);
    EXPECT_THROW(outer.Controls(1), EListError);
    EXPECT_EQ(outer.Controls(0), inner);
}

} // namespace vorn::test

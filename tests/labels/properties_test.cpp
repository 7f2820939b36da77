#include "tests/labels/label_fixture.h"

namespace vorn {
namespace {

using LabelProperties = LabelTest;

TEST_F(LabelProperties, AssignPropertiesCopiesTheLookButNotWhatIsTheLabelsOwn)
{
    TCustomImageList images(nullptr, 16, 11);
    TPopupMenu menu(nullptr);
    TDRLabel source(nullptr);
    source.SetBorder(TDRBorder::boLowered);
    source.SetImages(&images);
    source.SetXPicture(3);
    source.SetGliphPopupMenu(&menu);
    source.SetBlinkTimer(timer.get());
    source.Font().SetSize(15);
    source.SetAutoSize(false);
    // These are not for others.
    source.SetCaption(u"template");
    source.SetColor(clBlue);
    source.SetBounds(50, 60, 70, 80);
    source.SetTag(9);
    source.ShowDrag = true;

    source.OnSelect = [&](TObject*, bool, TShiftState) { log.push_back("source"); };

    TDRLabel& label = *MakeLabel("own", 1, 2, 30, 40);
    label.SetAutoSize(true);
    label.SetCaption(u"own");
    label.SetBounds(1, 2, 30, 40);
    label.AssignProperties(nullptr);
    EXPECT_TRUE(label.AutoSize());
    label.AssignProperties(&source);
    EXPECT_EQ(label.Border(), TDRBorder::boLowered);
    EXPECT_EQ(label.Images(), &images);
    EXPECT_EQ(label.XPicture(), 3);
    EXPECT_EQ(label.GliphPopupMenu(), &menu);
    EXPECT_EQ(label.BTimer(), timer.get());
    EXPECT_TRUE(label.Font() == source.Font());
    EXPECT_EQ(label.Caption(), u"own");
    EXPECT_NE(label.Color(), clBlue);
    EXPECT_EQ(label.BoundsRect(), vorn::Bounds(1, 2, 30, 40));
    EXPECT_EQ(label.Tag(), 0);
    EXPECT_FALSE(label.ShowDrag);
    EXPECT_FALSE(label.OnLabelClick) << "taken over though unassigned";
    Raise(label.OnSelect, &label, true, 0u);
    EXPECT_EQ(Taken(), Log{"own on"}) << "its own handler stays";
}

TEST_F(LabelProperties, WhatGoesIsForgotten)
{
    for (const bool owned : {false, true}) {
        SCOPED_TRACE(owned);
        TComponent form;
        TComponent* owner = owned ? &form : nullptr;
        auto* images = new TCustomImageList(owner, 16, 11);
        auto* menu = new TPopupMenu(owner);
        auto* blink = new TDRLabelTimer(owner);
        TDRLabel label(owner);
        label.SetImages(images);
        label.SetGliphPopupMenu(menu);
        label.SetPopupMenu(menu);
        label.SetBlinkTimer(blink);
        label.Font().SetColor(clBlack);
        label.Add();
        const int glyphed = label.Width();
        delete images;
        delete menu;
        delete blink;
        EXPECT_EQ(label.Width(), glyphed - 1);
        EXPECT_FALSE(label.Images() || label.GliphPopupMenu() || label.PopupMenu() || label.BTimer());
        EXPECT_EQ(label.Font().Color(), clBlack);
        label.AddToList(true);
        EXPECT_FALSE(label.InList());
    }
}

TEST_F(LabelProperties, FreedLabelIsForgotten)
{
    TCustomImageList images(nullptr, 16, 11);
    TPopupMenu menu(nullptr);
    TDRLabel* label = MakeLabel("A");
    label->SetImages(&images);
    label->SetGliphPopupMenu(&menu);
    label->SetPopupMenu(&menu);
    label->Add();
    delete label;
    EXPECT_EQ(timer->ComponentList().Count(), 0);
    EXPECT_TRUE(timer->Enabled()) << "it ticks on over an empty list";
    timer->TimeBLink(nullptr);
    images.SetSize(20, 20); // would reach the freed label
}

TEST_F(LabelProperties, AnotherListTakesThePlaceOfTheFirst)
{
    TCustomImageList second(nullptr, 30, 5);
    TDRLabel label(nullptr);
    label.SetParent(view.get());
    auto first = std::make_unique<TCustomImageList>(nullptr, 16, 50);
    label.SetImages(first.get());
    label.SetImageIndex(0);
    label.SetImages(&second);
    const TRect bounds = label.BoundsRect();
    first->SetSize(100, 100);
    first.reset();
    EXPECT_EQ(label.Images(), &second);
    EXPECT_EQ(label.BoundsRect(), bounds);
    second.SetSize(33, 5);
    EXPECT_EQ(label.Width(), bounds.Width() + 3);
}

} // namespace
} // namespace vorn

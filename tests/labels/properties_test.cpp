#include "tests/labels/label_fixture.h"
#include "tests/labels/paint_count.h"

#include <sstream>

namespace vorn {
namespace {

class LabelProperties : public LabelTest {
protected:
    void Settle()
    {
        QApplication::processEvents();
        QApplication::processEvents();
    }
};

/// All that AssignProperties takes over, but for the events.
std::string Described(const TDRLabel& l)
{
    std::ostringstream out;
    out << std::boolalpha << "auto " << l.AutoSize() << ", border " << static_cast<int>(l.Border()) << ", 3d "
        << l.Ct3D() << " " << std::hex << l.ShadowColor() << std::dec << " " << int{l.Deep()} << ", images "
        << l.Images() << " " << l.ImageIndex() << " " << l.GliphVisible() << ", at " << l.XPicture() << " "
        << l.YPicture() << " " << static_cast<int>(l.PictureXAlignment()) << " "
        << static_cast<int>(l.PictureYAlignment()) << ", menus " << l.GliphPopupMenu() << " " << l.PopupMenu()
        << ", on click " << l.GliphContextPopupOnClick << " " << l.BlinkOnClick << ", timer " << l.BTimer()
        << ", transparent " << l.Transparent() << ", cursor " << l.Cursor();
    return out.str();
}

TEST(LabelDefaults, AfterCreation)
{
    const TLabel plain(nullptr);
    const TDRLabel label(nullptr);
    EXPECT_EQ(Described(label),
        "auto true, border 0, 3d false 80000014 1, images 0 -1 false, at 0 0 2 1, menus 0 0, "
        "on click true true, timer 0, transparent false, cursor 0");
    EXPECT_FALSE(label.ShowDrag || label.isMoved() || label.InList());
    EXPECT_EQ(label.FontColor(), label.Font().Color());
    EXPECT_FALSE(label.OnGlyphClick || label.OnLabelClick || label.OnSelect || label.OnSavePosEvent
        || label.OnGliphContextPopup);
    EXPECT_EQ(label.Width(), plain.Width() + 1) << "room for the shadow";
    EXPECT_EQ(label.Height(), plain.Height() + 1);

    const TDRLabelTimer timer(nullptr);
    EXPECT_EQ(timer.Blink(), TDRBlink::blHiLo);
    EXPECT_EQ(timer.HiColor(), clRed);
    EXPECT_EQ(timer.LoColor(), clNone);
    EXPECT_EQ(timer.ComponentList().Count(), 0);
    EXPECT_FALSE(timer.Enabled());
    EXPECT_EQ(timer.Interval(), 400);
}

TEST(LabelDefaults, DeepTakesOneAndTwo)
{
    TDRLabel label(nullptr);
    label.SetDeep(2);
    for (const int ignored : {0, 3, -1, 255, 257}) {
        label.SetDeep(ignored);
        EXPECT_EQ(label.Deep(), 2) << ignored;
    }
    label.SetDeep(1);
    EXPECT_EQ(label.Deep(), 1);
}

TEST_F(LabelProperties, SettersPaintAtOnceLaterOrNotAtAll)
{
    enum When { AtOnce, Later, Never };
    struct Case {
        const char* name;
        std::function<void(TDRLabel&)> set;
        When changed, unchanged;
    };
    const Case cases[] = {
        {"Deep", [](TDRLabel& l) { l.SetDeep(2); }, Later, Never},
        {"ShadowColor", [](TDRLabel& l) { l.SetShadowColor(clRed); }, Later, Never},
        {"Ct3D", [](TDRLabel& l) { l.SetCtl3D(true); }, Later, Never},
        {"Border", [](TDRLabel& l) { l.SetBorder(TDRBorder::boRaised); }, Later, Never},
        {"XPicture", [](TDRLabel& l) { l.SetXPicture(4); }, AtOnce, AtOnce},
        {"YPicture", [](TDRLabel& l) { l.SetYPicture(4); }, AtOnce, AtOnce},
        {"PictureXAlignment", [](TDRLabel& l) { l.SetPictureXAlignment(TXAlign::alXNone); }, AtOnce, AtOnce},
        {"PictureYAlignment", [](TDRLabel& l) { l.SetPictureYAlignment(TYAlign::alYNone); }, AtOnce, AtOnce},
        {"GliphVisible", [](TDRLabel& l) { l.SetGliphVisible(true); }, AtOnce, AtOnce},
        {"ImageIndex", [](TDRLabel& l) { l.SetImageIndex(0); }, Never, Never},
    };
    TCustomImageList images(nullptr, 16, 11);
    images.AddImage(Coordinates(16, 11));
    TDRLabel* label = MakeLabel("A");
    label->SetImages(&images);
    Settle();
    PaintCount paints(view->Widget());
    auto when = [&](const Case& c) {
        Settle();
        paints.Taken();
        c.set(*label);
        if (paints.Taken() > 0)
            return AtOnce;
        Settle();
        return paints.Taken() > 0 ? Later : Never;
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(when(c), c.changed);
        EXPECT_EQ(when(c), c.unchanged);
    }
}

TEST_F(LabelProperties, AssignPropertiesCopiesLookAndBehaviour)
{
    TCustomImageList images(nullptr, 16, 11);
    TPopupMenu menu(nullptr), glyphMenu(nullptr);
    TDRLabel source(nullptr);
    std::string raised;
    source.SetAutoSize(false);
    source.SetBorder(TDRBorder::boLowered);
    source.SetCtl3D(true);
    source.SetShadowColor(clBlue);
    source.SetDeep(2);
    source.SetImages(&images);
    source.SetImageIndex(7);
    source.SetGliphVisible(true);
    source.SetXPicture(3);
    source.SetYPicture(4);
    source.SetPictureXAlignment(TXAlign::alXNone);
    source.SetPictureYAlignment(TYAlign::alYCenter);
    source.SetGliphPopupMenu(&glyphMenu);
    source.SetPopupMenu(&menu);
    source.GliphContextPopupOnClick = false;
    source.BlinkOnClick = false;
    source.OnGlyphClick = [&](TObject*) { raised += "glyph "; };
    source.OnLabelClick = [&](TObject*) { raised += "label "; };
    source.OnGliphContextPopup = [&](TObject*, const TPoint&, bool&) { raised += "context "; };
    source.OnSelect = [&](TObject*, bool, TShiftState) { raised += "select "; };
    source.OnSavePosEvent = [&](TObject*) { raised += "save "; };
    source.SetBlinkTimer(timer.get());
    source.SetTransparent(true);
    source.Font().SetSize(15);
    source.Font().SetColor(clRed);
    source.SetCursor(crHandPoint);
    // These are not for others.
    source.SetCaption(u"template");
    source.SetColor(clBlue);
    source.SetBounds(50, 60, 70, 80);
    source.SetTag(9);
    source.ShowDrag = true;
    source.SetFontColor(clBlue);

    TDRLabel label(nullptr);
    label.SetCaption(u"own");
    label.SetBounds(1, 2, 30, 40);
    label.AssignProperties(nullptr);
    EXPECT_TRUE(label.AutoSize());
    label.AssignProperties(&source);
    EXPECT_EQ(Described(label), Described(source));
    EXPECT_TRUE(label.Font() == source.Font());
    bool handled = false;
    Raise(label.OnGlyphClick, &label);
    Raise(label.OnLabelClick, &label);
    Raise(label.OnGliphContextPopup, &label, TPoint{}, handled);
    Raise(label.OnSelect, &label, true, 0u);
    Raise(label.OnSavePosEvent, &label);
    EXPECT_EQ(raised, "glyph label context select save ");

    EXPECT_EQ(label.Caption(), u"own");
    EXPECT_NE(label.Color(), clBlue);
    EXPECT_EQ(label.BoundsRect(), vorn::Bounds(1, 2, 30, 40));
    EXPECT_EQ(label.Tag(), 0);
    EXPECT_FALSE(label.ShowDrag);
    EXPECT_NE(label.FontColor(), clBlue);
}

TEST_F(LabelProperties, AssignPropertiesKeepsOwnSelectAndSaveOnly)
{
    TDRLabel* label = MakeLabel("own");
    TDRLabel source(nullptr);
    source.OnSelect = [&](TObject*, bool, TShiftState) { log.push_back("source"); };
    source.OnSavePosEvent = [&](TObject*) { log.push_back("source"); };
    label->AssignProperties(&source);
    EXPECT_FALSE(label->OnLabelClick) << "taken over though unassigned";
    Raise(label->OnSelect, label, true, 0u);
    Raise(label->OnSavePosEvent, label);
    EXPECT_EQ(Taken(), (Log{"own on", "own save"}));
}

TEST_F(LabelProperties, WhatGoesIsForgotten)
{
    for (const bool owned : {false, true}) {
        SCOPED_TRACE(owned);
        TComponent form;
        TComponent* owner = owned ? &form : nullptr;
        auto* images = new TCustomImageList(owner, 16, 11);
        auto* glyphMenu = new TPopupMenu(owner);
        auto* menu = new TPopupMenu(owner);
        auto* blink = new TDRLabelTimer(owner);
        TDRLabel label(owner);
        label.SetImages(images);
        label.SetGliphPopupMenu(glyphMenu);
        label.SetPopupMenu(menu);
        label.SetBlinkTimer(blink);
        label.Font().SetColor(clBlack);
        label.Add();
        const int glyphed = label.Width();
        delete images;
        delete glyphMenu;
        delete menu;
        delete blink;
        EXPECT_EQ(label.Images(), nullptr);
        EXPECT_EQ(label.Width(), glyphed - 1);
        EXPECT_EQ(label.GliphPopupMenu(), nullptr);
        EXPECT_EQ(label.PopupMenu(), nullptr);
        EXPECT_EQ(label.BTimer(), nullptr);
        EXPECT_FALSE(label.InList());
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

TEST_F(LabelProperties, OneMenuInBothPlacesIsForgottenInBoth)
{
    for (const bool glyphFirst : {false, true}) {
        auto menu = std::make_unique<TPopupMenu>(nullptr);
        TDRLabel label(nullptr);
        label.SetPopupMenu(menu.get());
        label.SetGliphPopupMenu(menu.get());
        if (glyphFirst)
            label.SetGliphPopupMenu(nullptr);
        else
            label.SetPopupMenu(nullptr);
        menu.reset();
        EXPECT_EQ(label.PopupMenu(), nullptr);
        EXPECT_EQ(label.GliphPopupMenu(), nullptr);
    }
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

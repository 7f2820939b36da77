#include "tests/labels/label_fixture.h"
#include "tests/support/reported_exceptions.h"

#include <stdexcept>

namespace vorn {
namespace {

class LabelInteraction : public LabelTest {
protected:
    LabelInteraction()
    {
        images.AddImage(Coordinates(16, 11));
        menu.OnPopup = [this](TObject*) { log.push_back("menu"); };
        glyphMenu.OnPopup = [this](TObject*) { log.push_back("glyph menu"); };
    }

    /// A label with its glyph in the left top corner, 16 by 11 pixels.
    TDRLabel* MakeGlyphLabel(const std::string& name)
    {
        TDRLabel* label = MakeLabel(name);
        label->SetImages(&images);
        label->SetImageIndex(0);
        label->SetGliphVisible(true);
        label->SetPictureXAlignment(TXAlign::alXLeft);
        label->OnGlyphClick = [this, name](TObject*) { log.push_back(name + " glyph"); };
        label->OnGliphContextPopup = [this, name](TObject*, const TPoint&, bool& handled) {
            log.push_back(name + " context");
            handled = contextHandled;
        };
        return label;
    }

    TCustomImageList images{nullptr, 16, 11};
    TPopupMenu menu{nullptr};
    TPopupMenu glyphMenu{nullptr};
    bool contextHandled = true;
};

TEST_F(LabelInteraction, LeftPress)
{
    constexpr TPoint body{50, 30};
    constexpr TPoint glyph{15, 10};
    struct Case {
        const char* name;
        TPoint at;
        int index;
        bool visible, hasGlyphClick, contextOnClick, blinkOnClick, selected;
        Log expected;
        bool after;
    };
    const Case cases[] = {
        {"body of an idle label", body, 0, true, true, true, true, false, {"A on"}, true},
        {"body of a selected label", body, 0, true, true, true, true, true, {"A off"}, false},
        {"body, no blink on click", body, 0, true, true, true, false, false, {}, false},
        {"body, selected, no blink on click", body, 0, true, true, true, false, true, {}, true},
        {"glyph", glyph, 0, true, true, true, true, false, {"A on", "A glyph"}, true},
        {"glyph of a selected label", glyph, 0, true, true, true, true, true, {"A glyph"}, true},
        {"glyph, no blink on click", glyph, 0, true, true, true, false, false, {"A glyph"}, false},
        {"glyph, menu", glyph, 0, true, false, true, true, false, {"A on", "A context"}, true},
        {"glyph, menu, selected", glyph, 0, true, false, true, true, true, {"A context"}, true},
        {"glyph, menu, no blink on click", glyph, 0, true, false, true, false, false, {"A context"}, false},
        {"glyph without any use", glyph, 0, true, false, false, true, false, {}, false},
        {"glyph without any use, selected", glyph, 0, true, false, false, true, true, {}, true},
        {"right of the glyph", {16, 10}, 0, true, true, true, true, false, {"A on"}, true},
        {"below the glyph", {15, 11}, 0, true, true, true, true, false, {"A on"}, true},
        {"no index", glyph, -1, true, true, true, true, false, {"A on"}, true},
        {"hidden glyph", glyph, 0, false, true, true, true, true, {"A off"}, false},
        {"index beyond the list", glyph, 9, true, true, true, true, false, {"A on", "A glyph"}, true},
        {"index below -1", glyph, -2, true, true, true, true, false, {"A on", "A glyph"}, true},
        {"index below -1, menu", glyph, -2, true, false, true, true, false, {"A on"}, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::unique_ptr<TDRLabel> label(MakeGlyphLabel("A"));
        label->SetImageIndex(c.index);
        label->SetGliphVisible(c.visible);
        if (!c.hasGlyphClick)
            label->OnGlyphClick = nullptr;
        label->GliphContextPopupOnClick = c.contextOnClick;
        label->BlinkOnClick = c.blinkOnClick;
        if (c.selected)
            label->Add();
        Click(label.get(), c.at.X, c.at.Y);
        EXPECT_EQ(Taken(), c.expected);
        EXPECT_EQ(label->InList(), c.after);
        EXPECT_EQ(timer->Enabled(), c.after);
        timer->Clear();
        Taken();
    }
}

TEST_F(LabelInteraction, ShiftGathersAndAPlainPressReplaces)
{
    TDRLabel* a = MakeLabel("A", 20, 20);
    TDRLabel* b = MakeLabel("B", 120, 20);
    TDRLabel* c = MakeLabel("C", 220, 20);
    Click(a, 50, 30);
    EXPECT_EQ(Taken(), (Log{"A on"}));
    Click(b, 50, 30);
    EXPECT_EQ(Taken(), (Log{"A off", "B on"}));
    const TColor shown = b->Font().Color();
    Click(a, 50, 30, Qt::ShiftModifier);
    EXPECT_EQ(Taken(), (Log{"A on shift"}));
    EXPECT_EQ(b->Font().Color(), shown) << "no step but the first one";
    EXPECT_EQ(timer->ComponentList().IndexOf(b), 0);
    EXPECT_EQ(timer->ComponentList().IndexOf(a), 1);
    Click(a, 50, 30, Qt::ShiftModifier);
    EXPECT_EQ(Taken(), (Log{"A off"})) << "no keys are told on leaving";
    Click(c, 50, 30, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(Taken(), (Log{"B off", "C on ctrl alt"}));
    c->AddToList(false);
    EXPECT_EQ(Taken(), Log{});
    EXPECT_FALSE(timer->Enabled());
}

TEST_F(LabelInteraction, DoubleClick)
{
    struct Case {
        bool blinkOnClick, selected;
        Log expected;
    };
    for (const Case& c : {Case{true, false, {"A on", "A label"}}, Case{true, true, {"A off", "A on", "A label"}},
             Case{false, false, {}}, Case{false, true, {"A label"}}}) {
        SCOPED_TRACE(testing::Message() << c.blinkOnClick << c.selected);
        const std::unique_ptr<TDRLabel> label(MakeLabel("A"));
        label->BlinkOnClick = c.blinkOnClick;
        if (c.selected)
            label->Add();
        mouse.DoubleClick(*label, {50, 30});
        EXPECT_EQ(Taken(), c.expected);
        timer->Clear();
        Taken();
    }
}

TEST_F(LabelInteraction, ContextMenus)
{
    constexpr TPoint body{50, 30};
    constexpr TPoint glyph{3, 3};
    struct Case {
        const char* name;
        TPoint at;
        bool hasGlyphMenu, visible, hasContext, handled;
        Log expected;
    };
    const Case cases[] = {
        {"body", body, true, true, true, true, {"A on", "menu"}},
        {"glyph, handled", glyph, true, true, true, true, {"A context"}},
        {"glyph, not handled", glyph, true, true, true, false, {"A context", "A on", "glyph menu"}},
        {"glyph", glyph, true, true, false, false, {"A on", "glyph menu"}},
        {"glyph without a menu", glyph, false, true, false, false, {"A on", "menu"}},
        {"hidden glyph", glyph, true, false, true, true, {"A on", "menu"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::unique_ptr<TDRLabel> label(MakeGlyphLabel("A"));
        label->BlinkOnClick = false; // a menu selects all the same
        label->SetPopupMenu(&menu);
        if (c.hasGlyphMenu)
            label->SetGliphPopupMenu(&glyphMenu);
        label->SetGliphVisible(c.visible);
        if (!c.hasContext)
            label->OnGliphContextPopup = nullptr;
        contextHandled = c.handled;
        mouse.Click(*label, c.at, Qt::RightButton);
        EXPECT_EQ(Taken(), c.expected);
        EXPECT_EQ(label->InList(), !c.handled || c.expected.front() == "A on");
        for (const TPopupMenu* opened : {&menu, &glyphMenu}) {
            const bool expected = c.expected.back() == (opened == &menu ? "menu" : "glyph menu");
            EXPECT_EQ(opened->PopupComponent() == label.get(), expected);
        }
        timer->Clear();
        Taken();
    }
}

class LabelDrag : public LabelTest {
protected:
    TDRLabel* MakeDraggable(const std::string& name, int left, int top)
    {
        TDRLabel* label = MakeLabel(name, left, top);
        label->ShowDrag = true;
        label->Add();
        return label;
    }
    static TPoint Place(const TDRLabel* label) { return {label->Left(), label->Top()}; }
};

TEST_F(LabelDrag, HandleArmsASelectedDraggableLabel)
{
    TDRLabel* label = MakeDraggable("A", 20, 20);
    struct Case {
        int x, y;
        bool armed;
    };
    const Case cases[] = {{9, 9, true}, {10, 10, false}, {0, 0, true}, {9, 10, false}, {0, 9, true}, {10, 0, false}};
    for (const Case& c : cases) {
        mouse.Move(*label, {c.x, c.y});
        EXPECT_EQ(label->Cursor(), c.armed ? crSizeAll : crDefault) << c.x << "," << c.y;
    }
    label->ShowDrag = false;
    mouse.Move(*label, {5, 5});
    EXPECT_EQ(label->Cursor(), crDefault);
    label->ShowDrag = true;
    mouse.Move(*label, {5, 5});
    label->AddToList(false);
    EXPECT_EQ(label->Cursor(), crDefault) << "leaving disarms";
    mouse.Move(*label, {5, 5});
    EXPECT_EQ(label->Cursor(), crDefault) << "an idle label can't be dragged";
}

TEST_F(LabelDrag, FollowsTheMouseAndIsSavedOnce)
{
    TDRLabel* label = MakeDraggable("A", 20, 20);
    mouse.Move(*label, {9, 0});
    mouse.Move(*label, {5, 6}); // the drag starts from here
    mouse.Press(*label, {5, 6});
    EXPECT_TRUE(label->InList()) << "a press on the handle doesn't deselect";
    mouse.Move(*view, {60, 50});
    EXPECT_EQ(Place(label), (TPoint{55, 44}));
    mouse.Move(*view, {-10, 350});
    EXPECT_EQ(Place(label), (TPoint{-15, 344})) << "the mouse is held outside the view too";
    mouse.Move(*view, {32, 29});
    EXPECT_TRUE(label->isMoved());
    EXPECT_EQ(Taken(), Log{});
    mouse.Release(*view, {32, 29});
    EXPECT_EQ(Place(label), (TPoint{27, 23}));
    EXPECT_EQ(Taken(), (Log{"A save"}));
    EXPECT_EQ(label->Cursor(), crDefault);
    mouse.Move(*view, {60, 60});
    EXPECT_EQ(Place(label), (TPoint{27, 23}));
    EXPECT_TRUE(label->InList());
    Click(label, 50, 30);
    EXPECT_EQ(Taken(), (Log{"A off"})) << "no release but the drag's saves";
}

TEST_F(LabelDrag, GroupKeepsItsShape)
{
    TDRLabel* a = MakeDraggable("A", 20, 20);
    TDRLabel* b = MakeDraggable("B", 120, 80);
    TDRLabel* c = MakeLabel("C", 220, 30);
    c->Add(); // selected, though not draggable itself
    TDRLabel* idle = MakeLabel("D", 220, 200);
    mouse.Move(*b, {3, 3});
    mouse.Press(*b, {3, 3});
    mouse.Move(*view, {125, 70});
    mouse.Move(*view, {130, 80});
    mouse.Release(*view, {130, 80});
    EXPECT_EQ(Place(a), (TPoint{27, 17}));
    EXPECT_EQ(Place(b), (TPoint{127, 77}));
    EXPECT_EQ(Place(c), (TPoint{227, 27}));
    EXPECT_EQ(Place(idle), (TPoint{220, 200}));
    EXPECT_TRUE(a->isMoved() && b->isMoved() && c->isMoved());
    EXPECT_FALSE(idle->isMoved());
    EXPECT_EQ(Taken(), (Log{"B save"}));
}

TEST_F(LabelDrag, ReleaseWithoutAMoveSavesOnlyWhatWasMovedBefore)
{
    TDRLabel* label = MakeDraggable("A", 20, 20);
    for (const bool moved : {false, true, false}) {
        label->SetisMoved(moved);
        mouse.Move(*label, {5, 5});
        Click(label, 5, 5);
        EXPECT_EQ(Taken(), moved ? Log{"A save"} : Log{});
        EXPECT_TRUE(label->InList());
    }
    Click(label, 5, 5); // not armed: no move over the handle since
    EXPECT_EQ(Taken(), (Log{"A off"}));
}

TEST_F(LabelDrag, AHandlerThatRaisesAtTheReleaseDoesNotKeepItGoing)
{
    const test::ReportedExceptions reported;
    for (const bool click : {true, false}) {
        const std::unique_ptr<TDRLabel> label(MakeDraggable("A", 20, 20));
        if (click)
            label->Events().OnClick = [](TObject*) { throw std::runtime_error("refused"); };
        else
            label->Events().OnMouseUp
                = [](TObject*, TMouseButton, TShiftState, int, int) { throw std::runtime_error("refused"); };
        mouse.Move(*label, {5, 5});
        mouse.Drag(*label, {5, 5}, {15, 25});
        mouse.Move(*view, {120, 90});
        EXPECT_EQ(Place(label.get()), (TPoint{30, 40})) << click;
        EXPECT_EQ(Taken(), (Log{"A save"})) << click;
    }
    EXPECT_EQ(reported.Texts(), (std::vector<String>{u"refused", u"refused"}));
}

TEST_F(LabelDrag, LeavingTheSelectionEndsIt)
{
    TDRLabel* label = MakeDraggable("A", 20, 20);
    mouse.Move(*label, {5, 5});
    mouse.Press(*label, {5, 5});
    mouse.Move(*view, {26, 26});
    timer->Clear();
    EXPECT_EQ(Taken(), (Log{"A off"}));
    mouse.Move(*view, {70, 70});
    mouse.Release(*view, {70, 70});
    EXPECT_EQ(Place(label), (TPoint{21, 21}));
    EXPECT_EQ(Taken(), Log{});
}

} // namespace
} // namespace vorn

#include "platform/controls/form.h"

#include "platform/controls/application.h"
#include "platform/controls/flow_panel.h"
#include "platform/system/exceptions.h"
#include "tests/controls/blocks.h"
#include "tests/controls/dialog.h"
#include "tests/support/keyboard.h"
#include "tests/support/mouse.h"
#include "tests/support/reported_exceptions.h"

#include <QtWidgets/QWidget>

#include <gtest/gtest.h>

namespace vorn::test {

TEST(FormTest, FloatsInsideItsParentWhicheverCallComesFirst)
{
    for (const bool parentFirst : {true, false}) {
        TWinControl view(nullptr);
        view.SetBounds(0, 0, 300, 200);
        view.Widget()->show();
        auto* form = new TForm(nullptr);
        form->SetBorderStyle(TFormBorderStyle::bsNone);
        form->SetBounds(40, 30, 81, 73);
        int shown = 0;
        form->OnShow = [&](TObject*) { ++shown; };
        EXPECT_FALSE(form->Visible());
        if (parentFirst)
            form->SetParent(&view);
        form->Show();
        form->SetParent(&view);
        QWidget* window = form->Widget();
        EXPECT_TRUE(form->Visible() && window->isVisible());
        EXPECT_FALSE(window->isWindow());
        EXPECT_EQ(window->geometry(), QRect(40, 30, 81, 73));
        EXPECT_EQ(form->ClientToScreen({0, 0}), view.ClientToScreen({40, 30}));
        EXPECT_EQ(shown, 1);
        form->Hide();
        EXPECT_FALSE(window->isVisible());
        form->SetLeft(60);
        form->Show();
        EXPECT_TRUE(window->isVisible());
        EXPECT_EQ(window->geometry(), QRect(60, 30, 81, 73));
        EXPECT_EQ(shown, 2);
        form->SetParent(nullptr);
        EXPECT_TRUE(window->isWindow() && window->isVisible());
        EXPECT_TRUE(window->windowFlags() & Qt::FramelessWindowHint);
        form->SetParent(&view); // which frees it
    }
}

TEST(FormTest, AutoSizeFollowsTheVisibleContents)
{
    TForm form(nullptr);
    form.SetBounds(5, 6, 210, 122);
    auto* block = new Block(form, Bounds(0, 0, 81, 73), clRed);
    EXPECT_EQ(form.BoundsRect(), Bounds(5, 6, 210, 122));
    form.SetAutoSize(true);
    EXPECT_EQ(form.BoundsRect(), Bounds(5, 6, 81, 73));
    auto* other = new Block(form, Bounds(70, 80, 30, 10), clBlue);
    EXPECT_EQ(form.BoundsRect(), Bounds(5, 6, 100, 90));
    other->SetVisible(false);
    EXPECT_EQ(form.BoundsRect(), Bounds(5, 6, 81, 73));
    block->SetBounds(0, 0, 20, 10);
    EXPECT_EQ(form.BoundsRect(), Bounds(5, 6, 20, 10));
    delete block;
    delete other;
    EXPECT_EQ(form.BoundsRect(), Bounds(5, 6, 20, 10)) << "an empty form keeps its size";
}

TEST(FormTest, ClosesOnlyWithConsentAndIsNotFreed)
{
    TForm form(nullptr);
    bool may = false;
    form.OnCloseQuery = [&](TObject*, bool& canClose) { canClose = may; };
    form.Show();
    form.Close();
    EXPECT_TRUE(form.Visible());
    form.Widget()->close();
    EXPECT_TRUE(form.Visible() && form.Widget()->isVisible());
    may = true;
    form.Widget()->close();
    EXPECT_FALSE(form.Visible() || form.Widget()->isVisible());
    form.Show();
    EXPECT_TRUE(form.Widget()->isVisible());
}

TEST(FormTest, TabGoesByTabOrderAndPassesOverWhatCantBeUsed)
{
    TForm form(nullptr);
    form.SetBounds(0, 0, 300, 300);
    std::vector<KeyBox*> boxes;
    auto* panel = new TFlowPanel(&form);
    const auto add = [&](TWinControl& parent, int order) {
        auto* box = new KeyBox(&form);
        box->SetBounds(0, 0, 20, 20);
        box->SetTabOrder(order);
        box->SetParent(&parent);
        boxes.push_back(box);
    };
    panel->SetTabOrder(1);
    panel->SetBounds(0, 0, 100, 100);
    panel->SetParent(&form);
    for (const int order : {2, 0, -1})
        add(form, order);
    for (const int order : {1, 0})
        add(*panel, order);
    add(form, 3);
    boxes[5]->SetEnabled(false);
    form.Show();
    ProcessEvents();
    const auto focused = [&] {
        for (std::size_t i = 0; i < boxes.size(); ++i)
            if (boxes[i]->Focused())
                return static_cast<int>(i);
        return -1;
    };
    std::vector<int> walk{focused()};
    for (int i = 0; i < 5; ++i) {
        Type(Qt::Key_Tab);
        walk.push_back(focused());
    }
    EXPECT_EQ(walk, (std::vector<int>{1, 4, 3, 0, 2, 1}));
    Type(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), 2);
    boxes[0]->SetTabStop(false);
    Type(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), 3);
}

TEST(FormTest, KeysGoToTheFocusedControlAndThenUpwards)
{
    Dialog dialog;
    int clicks = 0;
    dialog.Ok->Events().OnClick = [&](TObject*) { ++clicks; };
    dialog.Form->Show();
    ProcessEvents();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_PageUp, Qt::Key_A, Qt::Key_Home})
        Type(key);
    EXPECT_EQ(dialog.List->Keys, (std::vector<unsigned>{VK_DOWN, VK_PRIOR, VK_HOME}));
    Type(Qt::Key_Return);
    Repeat(Qt::Key_Return); // a key held down presses once
    Repeat(Qt::Key_Down);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(dialog.List->Keys.size(), 5u);
    dialog.Ok->SetEnabled(false);
    Type(Qt::Key_Return);
    EXPECT_EQ(clicks, 1);
    dialog.List->Keys.clear();
    dialog.Cancel->SetFocus();
    Type(Qt::Key_Down);
    EXPECT_TRUE(dialog.List->Keys.empty());
}

TEST(FormTest, AKeyHandlerMayFreeTheControlOrFail)
{
    Dialog dialog;
    dialog.Form->Show();
    ProcessEvents();
    dialog.Ok->Events().OnClick = [&](TObject*) { delete dialog.Ok; };
    dialog.Ok->SetFocus();
    Type(Qt::Key_Space);
    EXPECT_EQ(dialog.Form->ControlCount(), 2);
    const ReportedExceptions reported;
    dialog.Cancel->Events().OnClick = [&](TObject*) { throw EInvalidOperation(u"no"); };
    Type(Qt::Key_Escape);
    EXPECT_EQ(reported.Texts(), std::vector<String>{u"no"});
}

TEST(FormTest, HintsInsideAreShownOnlyWithShowHint)
{
    TForm form(nullptr);
    form.SetBounds(0, 0, 50, 50);
    auto* block = new Block(form, Bounds(0, 0, 50, 50), clRed);
    block->SetHint(u"Ruota");
    form.Show();
    Mouse().Rest(*block, {5, 5});
    EXPECT_EQ(Application().ShownHint(), u"");
    form.SetShowHint(true);
    Mouse().Rest(*block, {5, 5});
    EXPECT_EQ(Application().ShownHint(), u"Ruota");
    Application().HideHint();
}

TEST(FormTest, BelongsToTheFormAroundItAndForgetsWhatGoes)
{
    Dialog dialog;
    auto* inner = new TWinControl(dialog.Form.get());
    inner->SetParent(dialog.List);
    EXPECT_EQ(GetParentForm(inner), dialog.Form.get());
    EXPECT_EQ(GetParentForm(dialog.Form.get()), dialog.Form.get());
    TWinControl loose(nullptr);
    EXPECT_EQ(GetParentForm(&loose), nullptr);
    delete dialog.List;
    EXPECT_EQ(dialog.Form->ActiveControl(), nullptr);
    dialog.Form->Show();
    EXPECT_TRUE(dialog.Form->Visible());
}

TEST(FormTest, TakesItsParentsFontIfAsked)
{
    TWinControl parent(nullptr);
    parent.Font().SetSize(20);
    auto* plain = new TForm(nullptr);
    auto* following = new TForm(nullptr);
    following->SetParentFont(true);
    plain->SetParent(&parent);
    following->SetParent(&parent);
    EXPECT_EQ(plain->Font().Size(), 8);
    EXPECT_EQ(following->Font().Size(), 20);
}

} // namespace vorn::test

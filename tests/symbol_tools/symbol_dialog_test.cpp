#include "symbol_tools/vornSimbSelect.h"
#include "tests/controls/dialog.h"
#include "tests/support/keyboard.h"
#include "tests/support/mouse.h"

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

using Steps = std::vector<std::function<void()>>;

/// A dialog with thumbnails of these ids, the first selected, as it is filled for the user.
std::unique_ptr<TvornSimbSelectDlg> Filled(const std::vector<int>& ids)
{
    auto dialog = std::make_unique<TvornSimbSelectDlg>(nullptr);
    for (const int id : ids)
        dialog->ImageEnMView1->SetImageID(dialog->ImageEnMView1->AppendImage(), id);
    dialog->ImageEnMView1->SetSelectedItem(0);
    return dialog;
}

TPoint Middle(const TRect& r)
{
    return {(r.Left + r.Right) / 2, (r.Top + r.Bottom) / 2};
}

} // namespace

TEST(SymbolDialogTest, GivesTheChosenSymbolBack)
{
    TvornSimbSelectDlg* now = nullptr;
    const auto press = [](Qt::Key key) { return [key] { Type(key); }; };
    const auto at = [&](int idx) { return Middle(now->ImageEnMView1->ImageCell(idx)); };
    struct Case {
        const char* name;
        std::vector<int> ids;
        int entry;
        Steps steps;
        TModalResult result;
        int expected;
    };
    const std::vector<Case> cases{
        {"preselected", {5, 6, 7}, 6, {press(Qt::Key_Return)}, mrOk, 6},
        {"the last of two", {5, 6, 5, 7}, 5,
            {[&] { EXPECT_EQ(now->ImageEnMView1->SelectedImage(), 2); }, press(Qt::Key_Return)}, mrOk, 5},
        {"no match", {5, 6}, 99, {press(Qt::Key_Return)}, mrOk, 5},
        {"none asked for", {5, 6}, 0, {press(Qt::Key_Return)}, mrOk, 5},
        {"negative", {-3, 6, -4}, -4, {press(Qt::Key_Return)}, mrOk, -3},
        {"an empty list", {}, 12, {press(Qt::Key_Return)}, mrOk, 12},
        {"click, then OK", {5, 6, 7}, 5,
            {[&] { Mouse().Click(*now->ImageEnMView1, at(2)); },
                [&] {
                    Mouse().Click(*now->OKBtn, {9, 9});
                }},
            mrOk, 7},
        {"double click", {5, 6, 7}, 5, {[&] { Mouse().DoubleClick(*now->ImageEnMView1, at(1)); }}, mrOk, 6},
        {"arrow keys", {5, 6, 7}, 5,
            {press(Qt::Key_Right), press(Qt::Key_Right), press(Qt::Key_Left), press(Qt::Key_Return)}, mrOk, 6},
        {"End", {5, 6, 7}, 5, {press(Qt::Key_End), press(Qt::Key_Return)}, mrOk, 7},
        {"Escape", {5, 6}, 6, {[&] { Mouse().Click(*now->ImageEnMView1, at(0)); }, press(Qt::Key_Escape)}, mrCancel, 6},
        {"Cancel", {5, 6}, 6, {[&] {
             Mouse().Click(*now->CancelBtn, {9, 9});
         }},
            mrCancel, 6},
    };
    for (const Case& c : cases) {
        const auto dialog = Filled(c.ids);
        now = dialog.get();
        EXPECT_EQ(dialog->simb_id, 0);
        dialog->simb_id = c.entry;
        EXPECT_EQ(RunModal(*dialog, c.steps), c.result) << c.name;
        EXPECT_EQ(dialog->simb_id, c.expected) << c.name;
    }
}

TEST(SymbolDialogTest, IsLaidOutForTheKeyboardAndTheMouse)
{
    const auto dialog = Filled({5});
    EXPECT_EQ(dialog->Caption(), u"Seleziona Simbolo grafico");
    EXPECT_EQ((TPoint{dialog->ClientWidth(), dialog->ClientHeight()}), (TPoint{386, 276}));
    EXPECT_EQ(dialog->OKBtn->BoundsRect(), Bounds(116, 243, 75, 25));
    EXPECT_EQ(dialog->CancelBtn->BoundsRect(), Bounds(197, 243, 75, 25));
    EXPECT_EQ(dialog->ImageEnMView1->BoundsRect(), Bounds(8, 8, 370, 229));
    std::vector<const TWinControl*> focused;
    const auto look = [&] {
        for (const TWinControl* control : {static_cast<TWinControl*>(dialog->OKBtn),
                 static_cast<TWinControl*>(dialog->CancelBtn), static_cast<TWinControl*>(dialog->ImageEnMView1)})
            if (control->Focused())
                focused.push_back(control);
        Type(Qt::Key_Tab);
    };
    EXPECT_EQ(RunModal(*dialog, {look, look, look, [] { Type(Qt::Key_Escape); }}), mrCancel);
    EXPECT_EQ(focused, (std::vector<const TWinControl*>{dialog->ImageEnMView1, dialog->OKBtn, dialog->CancelBtn}));
}

} // namespace vorn::test

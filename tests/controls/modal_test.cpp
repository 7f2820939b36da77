#include "platform/controls/event_scope.h"
#include "platform/system/exceptions.h"
#include "tests/controls/dialog.h"
#include "tests/support/keyboard.h"
#include "tests/support/mouse.h"
#include "tests/support/reported_exceptions.h"

#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

using Steps = std::vector<std::function<void()>>;

void Press(Qt::Key key)
{
    Type(key);
}

} // namespace

TEST(ModalTest, EndsAsTheUserEndsIt)
{
    Dialog* now = nullptr;
    const auto press = [](Qt::Key key) { return [key] { Press(key); }; };
    struct Case {
        const char* name;
        Steps steps;
        TModalResult expected;
    };
    const std::vector<Case> cases{
        {"Enter on the list", {press(Qt::Key_Return)}, mrOk},
        {"Enter of the number block", {press(Qt::Key_Enter)}, mrOk},
        {"Escape", {press(Qt::Key_Escape)}, mrCancel},
        {"Tab to OK, Space", {press(Qt::Key_Tab), press(Qt::Key_Space)}, mrOk},
        {"Tab to Cancel, Enter", {press(Qt::Key_Tab), press(Qt::Key_Tab), press(Qt::Key_Return)}, mrCancel},
        {"Tab back to Cancel, Space", {press(Qt::Key_Backtab), press(Qt::Key_Space)}, mrCancel},
        {"Tab round to the list",
            {press(Qt::Key_Tab), press(Qt::Key_Tab), press(Qt::Key_Tab), press(Qt::Key_Space), press(Qt::Key_Escape)},
            mrCancel},
        {"click on OK", {[&] {
             Mouse().Click(*now->Ok, {5, 5});
         }},
            mrOk},
        {"release beside Cancel, then OK",
            {[&] {
                 Mouse mouse;
                 mouse.Press(*now->Cancel, {5, 5});
                 mouse.Release(*now->Cancel, {5, -5});
             },
                [&] { now->Ok->Click(); }},
            mrOk},
        {"the frame's button", {[&] { now->Form->Widget()->close(); }}, mrCancel},
        {"Close", {[&] { now->Form->Close(); }}, mrCancel},
        {"Hide", {[&] { now->Form->Hide(); }}, mrCancel},
        {"any result", {[&] { now->Form->SetModalResult(7); }}, 7},
    };
    for (const Case& c : cases) {
        Dialog dialog;
        now = &dialog;
        EXPECT_EQ(dialog.Run(c.steps), c.expected) << c.name;
        EXPECT_EQ(dialog.Form->ModalResult(), c.expected) << c.name;
        EXPECT_FALSE(dialog.Form->Visible()) << c.name;
    }
}

TEST(ModalTest, IsAModalWindowWithTheCaptionInTheMiddleOfTheScreen)
{
    QWidget front;
    front.show();
    ProcessEvents();
    Dialog dialog;
    dialog.Form->SetPosition(TPosition::poScreenCenter);
    const QWidget& window = *dialog.Form->Widget();
    int shown = 0;
    dialog.Form->OnShow = [&](TObject* sender) {
        ++shown;
        EXPECT_EQ(sender, dialog.Form.get());
    };
    const EventScope outer(ssShift, {1, 1});
    const auto look = [&] {
        EXPECT_TRUE(window.isVisible() && window.isWindow());
        EXPECT_EQ(window.windowModality(), Qt::ApplicationModal);
        EXPECT_EQ(QApplication::activeModalWidget(), &window);
        EXPECT_EQ(window.windowTitle(), "Scelta");
        EXPECT_EQ(window.size(), QSize(200, 120));
        EXPECT_EQ(window.maximumSize(), window.minimumSize());
        EXPECT_EQ(window.windowType(), Qt::Dialog);
        const QPoint middle = QGuiApplication::primaryScreen()->availableGeometry().center();
        const QPoint off = window.geometry().center() - middle;
        EXPECT_LE(off.manhattanLength(), 4) << "but for the frame";
        EXPECT_TRUE(dialog.List->Focused());
        EXPECT_EQ(EventScope::Current(), nullptr) << "inside, the keys are read as they are now";
    };
    EXPECT_EQ(dialog.Run({look, [] { Press(Qt::Key_Escape); }}), mrCancel);
    EXPECT_EQ(EventScope::Current(), &outer);
    EXPECT_EQ(shown, 1);
    front.activateWindow(); // as the window system does
    ProcessEvents();
    EXPECT_EQ(dialog.Run({[] { Press(Qt::Key_Return); }}), mrOk) << "it can be run again";
    EXPECT_EQ(shown, 2);
}

TEST(ModalTest, TheQueryMayKeepItOpenAndResetsTheResult)
{
    Dialog dialog;
    std::vector<TModalResult> asked;
    dialog.Form->OnCloseQuery = [&](TObject*, bool& canClose) {
        asked.push_back(dialog.Form->ModalResult());
        canClose = asked.size() > 1;
    };
    const TModalResult result = dialog.Run({[] { Press(Qt::Key_Return); },
        [&] {
            EXPECT_TRUE(dialog.Form->Visible());
            EXPECT_EQ(dialog.Form->ModalResult(), mrNone);
            Press(Qt::Key_Escape);
        }});
    EXPECT_EQ(result, mrCancel);
    EXPECT_EQ(asked, (std::vector<TModalResult>{mrOk, mrCancel}));
}

TEST(ModalTest, AHandlerMayTakeTheResultBackOrSetItAtOnce)
{
    Dialog dialog;
    dialog.Ok->Events().OnClick = [&](TObject*) {
        EXPECT_EQ(dialog.Form->ModalResult(), mrOk);
        dialog.Form->SetModalResult(mrNone);
    };
    EXPECT_EQ(dialog.Run({[] { Press(Qt::Key_Return); }, [] { Press(Qt::Key_Escape); }}), mrCancel);
    dialog.Form->OnShow = [&](TObject*) { dialog.Form->SetModalResult(5); };
    EXPECT_EQ(dialog.Form->ShowModal(), 5);
}

TEST(ModalTest, ExceptionsOfHandlersAreReportedAndItStaysOpen)
{
    const ReportedExceptions reported;
    Dialog dialog;
    int queries = 0;
    dialog.Form->OnCloseQuery = [&](TObject*, bool&) {
        if (++queries == 1)
            throw EInvalidOperation(u"query");
    };
    dialog.Cancel->Events().OnClick = [&](TObject*) { throw EInvalidOperation(u"click"); };
    dialog.Cancel->SetModalResult(mrNone);
    EXPECT_EQ(dialog.Run({[] { Press(Qt::Key_Escape); }, [] { Press(Qt::Key_Return); }, [] { Press(Qt::Key_Return); }}),
        mrOk);
    EXPECT_EQ(reported.Texts(), (std::vector<String>{u"click", u"query"}));
    dialog.Form->OnShow = [](TObject*) { throw EInvalidOperation(u"show"); };
    EXPECT_EQ(dialog.Form->ShowModal(), mrCancel);
    EXPECT_EQ(reported.Texts().back(), u"show");
}

TEST(ModalTest, SurvivesBeingFreedWhereverThatHappens)
{
    using Action = std::function<void(Dialog&)>;
    const auto endsCancelled = [](const Action& prepare, const Action& step) {
        Dialog dialog;
        prepare(dialog);
        EXPECT_EQ(dialog.Run({[&] { step(dialog); }}), mrCancel);
        EXPECT_EQ(dialog.Form, nullptr);
    };
    const auto freeOnClick = [](Dialog& d) { d.Ok->Events().OnClick = [&d](TObject*) { d.Form.reset(); }; };
    endsCancelled([](Dialog&) {}, [](Dialog& d) { d.Form.reset(); });
    endsCancelled(freeOnClick, [](Dialog&) { Press(Qt::Key_Return); });
    endsCancelled(freeOnClick, [](Dialog& d) { Mouse().Click(*d.Ok, {5, 5}); });
    endsCancelled([](Dialog& d) { d.Form->OnShow = [&d](TObject*) { d.Form.reset(); }; }, [](Dialog&) {});
    endsCancelled([](Dialog& d) { d.Form->OnCloseQuery = [&d](TObject*, bool&) { d.Form.reset(); }; },
        [](Dialog&) { Press(Qt::Key_Escape); });
}

TEST(ModalTest, EndsWhenTheToolkitDestroysItsWindow)
{
    Dialog dialog;
    EXPECT_EQ(dialog.Run({[&] { delete dialog.Form->Widget(); }}), mrCancel);
    EXPECT_EQ(dialog.Form->Widget(), nullptr);
}

TEST(ModalTest, AShownOrFloatingFormIsRefused)
{
    Dialog dialog;
    dialog.Form->Show();
    EXPECT_THROW(dialog.Form->ShowModal(), EInvalidOperation);
    dialog.Form->Hide();
    TWinControl parent(nullptr);
    dialog.Form->SetParent(&parent);
    EXPECT_THROW(dialog.Form->ShowModal(), EInvalidOperation);
    dialog.Form->SetParent(nullptr);
    EXPECT_EQ(dialog.Run({[] { Press(Qt::Key_Return); }}), mrOk);
}

} // namespace vorn::test

#include "platform/controls/popup_menu.h"
#include "platform/controls/timer.h"
#include "platform/controls/win_control.h"
#include "tests/support/mouse.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

void WaitFor(const std::function<bool()>& condition)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition() && clock.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
}

/// Runs once the menu is open, with that menu.
void WhenOpen(std::function<void(QMenu&)> action)
{
    QTimer::singleShot(0, [action = std::move(action)] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        action(*menu);
    });
}

void Choose(QMenu& menu, int index)
{
    menu.setActiveAction(menu.actions().at(index));
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(&menu, &enter);
}

} // namespace

TEST(TimerTest, CallsWhileEnabledAndMayBeFreedByItsEvent)
{
    auto timer = std::make_unique<TTimer>();
    int calls = 0;
    timer->OnTimer = [&](TObject*) { timer->SetEnabled(++calls < 3); };
    timer->SetInterval(1);
    WaitFor([&] { return calls >= 3; });
    QElapsedTimer clock;
    clock.start();
    WaitFor([&] { return clock.elapsed() > 20; });
    EXPECT_EQ(calls, 3);
    timer->OnTimer = [&](TObject*) { timer.reset(); };
    timer->SetEnabled(true);
    WaitFor([&] { return !timer; });
    EXPECT_EQ(timer, nullptr);
}

TEST(PopupMenuTest, RaisesTheChosenEntry)
{
    TWinControl window(nullptr);
    window.SetBounds(0, 0, 100, 100);
    window.Widget()->show();
    TPopupMenu menu;
    std::vector<int> chosen;
    bool opened = false;
    menu.OnPopup = [&](TObject*) { opened = menu.PopupComponent() == &window; };
    EXPECT_EQ(menu.AddItem(u"First", [&](TObject*) { chosen.push_back(0); }), 0);
    EXPECT_EQ(menu.AddItem(u"-", {}), 1);
    EXPECT_EQ(menu.AddItem(u"Last", [&](TObject*) { chosen.push_back(2); }), 2);
    window.SetPopupMenu(&menu);
    WhenOpen([](QMenu& open) {
        EXPECT_TRUE(open.actions().at(1)->isSeparator());
        Choose(open, 2);
    });
    Mouse().Click(window, {5, 5}, Qt::RightButton);
    EXPECT_TRUE(opened);
    EXPECT_EQ(chosen, std::vector<int>{2});
    WhenOpen([](QMenu& open) { open.close(); });
    Mouse().Click(window, {5, 5}, Qt::RightButton);
    EXPECT_EQ(chosen, std::vector<int>{2});
}

TEST(PopupMenuTest, MayBeFreedWhileItIsOpen)
{
    auto component = std::make_unique<TComponent>();
    auto menu = std::make_unique<TPopupMenu>();
    menu->AddItem(u"Entry", [](TObject*) { ADD_FAILURE() << "nothing was chosen"; });
    WhenOpen([&](QMenu&) {
        component.reset();
        EXPECT_EQ(menu->PopupComponent(), nullptr);
        menu.reset();
    });
    menu->Popup(1, 1, component.get());
    EXPECT_EQ(menu, nullptr);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);

    menu = std::make_unique<TPopupMenu>();
    menu->AddItem(u"Entry", {});
    menu->OnPopup = [&](TObject*) { menu.reset(); };
    menu->Popup(1, 1, nullptr);
    EXPECT_EQ(menu, nullptr);
}

} // namespace vorn::test

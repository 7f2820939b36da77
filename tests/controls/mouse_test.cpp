#include "platform/controls/application.h"
#include "tests/controls/blocks.h"
#include "tests/support/mouse.h"

#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

class MouseTest : public testing::Test {
protected:
    MouseTest() { MakeWindow(); }
    void MakeWindow()
    {
        window_ = std::make_unique<TWinControl>(nullptr);
        window_->SetBounds(0, 0, 200, 150);
        window_->Widget()->show();
        low_ = new Block(*window_, Bounds(10, 20, 50, 40), clRed);
        high_ = new Block(*window_, Bounds(40, 20, 50, 40), clBlue);
    }

    void Log(TControl& control, const std::string& name)
    {
        const auto note = [this, name](const std::string& what, int x, int y) {
            log_.push_back(name + " " + what + " " + std::to_string(x) + "," + std::to_string(y));
        };
        control.Events().OnClick = [this, name](TObject*) { log_.push_back(name + " click"); };
        control.Events().OnDblClick = [this, name](TObject*) { log_.push_back(name + " dblclick"); };
        control.Events().OnMouseDown
            = [note](TObject*, TMouseButton, TShiftState, int x, int y) { note("down", x, y); };
        control.Events().OnMouseUp = [note](TObject*, TMouseButton, TShiftState, int x, int y) { note("up", x, y); };
        control.Events().OnMouseMove = [note](TObject*, TShiftState, int x, int y) { note("move", x, y); };
    }
    std::vector<std::string> Taken() { return std::exchange(log_, {}); }
    using Lines = std::vector<std::string>;

    std::unique_ptr<TWinControl> window_;
    Block* low_ = nullptr;
    Block* high_ = nullptr;
    Mouse mouse_;
    std::vector<std::string> log_;
};

} // namespace

TEST_F(MouseTest, GoesToTheTopmostControlElseToTheWindow)
{
    Log(*window_, "window");
    Log(*low_, "low");
    Log(*high_, "high");
    mouse_.Click(*window_, {45, 25});
    EXPECT_EQ(Taken(), (Lines{"high down 5,5", "high click", "high up 5,5"}));
    mouse_.Click(*window_, {2, 3});
    EXPECT_EQ(Taken(), (Lines{"window down 2,3", "window click", "window up 2,3"}));
    high_->SetEnabled(false);
    mouse_.Click(*window_, {45, 25});
    EXPECT_EQ(Taken(), (Lines{"low down 35,5", "low click", "low up 35,5"}));
    high_->SetEnabled(true);
    high_->SetVisible(false);
    mouse_.Click(*window_, {45, 25});
    EXPECT_EQ(Taken().front(), "low down 35,5");
    window_->SetEnabled(false);
    mouse_.Click(*window_, {2, 3});
    EXPECT_EQ(Taken(), Lines{});
}

TEST_F(MouseTest, APressCapturesUntilTheRelease)
{
    Log(*window_, "window");
    Log(*low_, "low");
    Log(*high_, "high");
    mouse_.Press(*low_, {5, 5});
    EXPECT_EQ(window_->MouseCapture(), low_);
    mouse_.Move(*high_, {40, 5}); // 70 to the right of low's edge
    mouse_.Release(*high_, {40, 5});
    EXPECT_EQ(Taken(), (Lines{"low down 5,5", "low move 70,5", "low up 70,5"}));
    EXPECT_EQ(window_->MouseCapture(), nullptr);
    mouse_.Move(*high_, {40, 5});
    EXPECT_EQ(Taken(), (Lines{"high move 40,5"}));
}

TEST_F(MouseTest, KeysAndPointerAreThoseOfTheEvent)
{
    TShiftState state = 0, shift = 0;
    TPoint pointer;
    low_->Events().OnMouseDown = [&](TObject*, TMouseButton, TShiftState s, int, int) {
        shift = s;
        state = CurrentShiftState();
        pointer = GetCursorPos();
    };
    mouse_.SetModifiers(Qt::ShiftModifier | Qt::ControlModifier);
    mouse_.Press(*low_, {3, 4});
    EXPECT_EQ(state, ssShift | ssCtrl | ssLeft);
    EXPECT_EQ(shift, state);
    EXPECT_EQ(low_->ScreenToClient(pointer), (TPoint{3, 4}));
    EXPECT_EQ(low_->ClientToScreen({3, 4}), pointer);
    EXPECT_EQ(CurrentShiftState(), 0u);
    mouse_.ReleaseThere();
}

TEST_F(MouseTest, HandlersMayFreeEverything)
{
    const std::pair<const char*, std::function<void()>> deeds[] = {
        {"control", [this] { delete std::exchange(low_, nullptr); }},
        {"parent", [this] { window_.reset(); }},
        {"window", [this] { delete window_->Widget(); }},
    };
    for (const auto& [what, deed] : deeds) {
        for (const std::string when : {"down", "click", "up", "dblclick", "move", "context"}) {
            SCOPED_TRACE(std::string(what) + " in " + when);
            MakeWindow();
            bool done = false;
            const auto free = [&done, &deed = deed](auto&&...) {
                if (!std::exchange(done, true))
                    deed();
            };
            auto& events = low_->Events();
            if (when == "click" || when == "dblclick")
                (when == "click" ? events.OnClick : events.OnDblClick) = free;
            else if (when == "down" || when == "up")
                (when == "down" ? events.OnMouseDown : events.OnMouseUp) = free;
            else if (when == "move")
                events.OnMouseMove = free;
            else
                events.OnContextPopup = free;
            Mouse mouse;
            mouse.Move(*low_, {5, 5});
            if (!done && when == "context")
                mouse.Click(*low_, {5, 5}, Qt::RightButton);
            else if (!done)
                mouse.DoubleClick(*low_, {5, 5});
            mouse.MoveBy(1, 1);
            EXPECT_TRUE(done);
            EXPECT_TRUE(!window_ || !window_->MouseCapture());
            ProcessEvents();
        }
    }
}

TEST_F(MouseTest, TheRightButtonAsksForTheMenuOnItsRelease)
{
    Lines& log = log_;
    bool take = false;
    low_->Events().OnContextPopup = [&](TObject*, const TPoint& at, bool& handled) {
        log.push_back("low at " + std::to_string(at.X) + "," + std::to_string(at.Y));
        handled = take;
    };
    window_->Events().OnContextPopup
        = [&](TObject*, const TPoint&, bool& handled) { handled = (log.push_back("window"), true); };
    mouse_.Press(*low_, {7, 8}, Qt::RightButton);
    EXPECT_EQ(Taken(), Lines{});
    mouse_.ReleaseThere(Qt::RightButton);
    EXPECT_EQ(Taken(), (Lines{"low at 7,8", "window"})); // nobody took it on the control
    take = true;
    mouse_.Click(*low_, {7, 8}, Qt::RightButton);
    EXPECT_EQ(Taken(), (Lines{"low at 7,8"}));
    mouse_.ContextKey(*low_, {7, 8});
    EXPECT_EQ(Taken(), (Lines{"window"}));
    // What some platforms send in addition, on the press, is not a second request.
    QContextMenuEvent extra(QContextMenuEvent::Mouse, QPoint(20, 30), QPoint(20, 30));
    QApplication::sendEvent(window_->Widget(), &extra);
    EXPECT_EQ(Taken(), Lines{});
}

TEST_F(MouseTest, HintsComeFromTheControlElseTheWindow)
{
    low_->SetHint(u"18 <MOD>");
    window_->SetHint(u"chart");
    mouse_.Rest(*low_, {2, 2});
    EXPECT_EQ(Application().ShownHint(), u"18 <MOD>");
    mouse_.Rest(*high_, {40, 2});
    EXPECT_EQ(Application().ShownHint(), u"chart");
    Application().HideHint();
    EXPECT_EQ(Application().ShownHint(), u"");
    Application().ActivateHint(low_->ClientToScreen({2, 2}));
    EXPECT_EQ(Application().ShownHint(), u"18 <MOD>");
    mouse_.Leave(*window_);
    EXPECT_EQ(Application().ShownHint(), u"");
}

} // namespace vorn::test

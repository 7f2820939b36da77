#include "platform/controls/application.h"
#include "platform/controls/drag_session.h"
#include "platform/controls/label.h"
#include "platform/system/exceptions.h"
#include "tests/support/drag.h"
#include "tests/support/mouse.h"
#include "tests/support/strings_print.h"

#include <QtCore/QMimeData>
#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

/// Begins a drag of itself when the mouse moves with the left button down.
class Thing : public TWinControl {
public:
    using TWinControl::CancelDrag;
    using TWinControl::RunDrag;
    using TWinControl::TWinControl;

    void WMLMouseMove(const TMouseMessage& message) override
    {
        if (message.Shift & ssLeft)
            RunDrag(QImage(8, 8, QImage::Format_RGB32));
    }
};

const char* NameOf(TDragState state)
{
    return state == TDragState::dsDragEnter ? "enter" : state == TDragState::dsDragLeave ? "leave" : "move";
}

std::string At(int x, int y)
{
    return " " + std::to_string(x) + "," + std::to_string(y);
}

/// A thing and two places to drop it on, each with a window of its own.
class DragTest : public testing::Test {
protected:
    using Log = std::vector<std::string>;

    DragTest()
    {
        thing_->Events().OnEndDrag = [this](TObject* sender, TObject* target, int x, int y) {
            EXPECT_EQ(sender, thing_.get());
            log_.push_back("end " + std::string(target == nullptr ? "none" : NameOfPlace(target)) + At(x, y));
        };
        for (TWinControl* control : {static_cast<TWinControl*>(thing_.get()), place_.get(), other_.get()}) {
            control->SetBounds(0, 0, 100, 80);
            control->Widget()->show();
        }
        place_->Widget()->move(200, 100);
        Listen(*place_);
    }

    std::string NameOfPlace(const TObject* place) const
    {
        return place == place_.get() ? "place" : place == other_.get() ? "other" : "?";
    }
    void Listen(TWinControl& target)
    {
        target.Events().OnDragOver
            = [this](TObject* sender, TObject* source, int x, int y, TDragState state, bool& accept) {
                  EXPECT_EQ(source, thing_.get());
                  EXPECT_FALSE(accept);
                  log_.push_back(NameOfPlace(sender) + " " + NameOf(state) + At(x, y));
                  accept = x >= 50; // the right half takes things
              };
        target.Events().OnDragDrop = [this](TObject* sender, TObject* source, int x, int y) {
            EXPECT_EQ(source, thing_.get());
            log_.push_back(NameOfPlace(sender) + " drop" + At(x, y));
        };
    }
    Log Taken() { return std::exchange(log_, {}); }

    std::unique_ptr<Thing> thing_ = std::make_unique<Thing>(nullptr);
    std::unique_ptr<TWinControl> place_ = std::make_unique<TWinControl>(nullptr);
    std::unique_ptr<TWinControl> other_ = std::make_unique<TWinControl>(nullptr);
    Log log_;
};

} // namespace

TEST_F(DragTest, TheTargetHearsEnterMoveDropAndThenTheSourceTheEnd)
{
    const DragResult result = DragAlong(*thing_, {5, 5}, {{place_.get(), {60, 20}}, {place_.get(), {70, 30}}});
    EXPECT_TRUE(result.Began);
    EXPECT_TRUE(result.Taken);
    EXPECT_EQ(Taken(),
        (Log{"place enter 60,20", "place move 60,20", "place move 70,30", "place drop 70,30", "end place 70,30"}));
    EXPECT_EQ(thing_->MouseCapture(), nullptr);
}

TEST_F(DragTest, AcceptanceGoesByTheLastPlace)
{
    // Refused where it came in, taken further on.
    DragAlong(*thing_, {5, 5}, {{place_.get(), {10, 10}}, {place_.get(), {50, 10}}});
    EXPECT_EQ(Taken(),
        (Log{"place enter 10,10", "place move 10,10", "place move 50,10", "place drop 50,10", "end place 50,10"}));
    // The other way round.
    const DragResult refused = DragAlong(*thing_, {5, 5}, {{place_.get(), {50, 10}}, {place_.get(), {49, 10}}});
    EXPECT_TRUE(refused.Began);
    EXPECT_FALSE(refused.Taken);
    EXPECT_EQ(Taken(),
        (Log{"place enter 50,10", "place move 50,10", "place move 49,10", "place leave 49,10", "end none 0,0"}));
}

TEST_F(DragTest, LeavingIsToldAndNothingIsAcceptedByDefault)
{
    Listen(*other_);
    other_->Events().OnDragOver = [this](TObject*, TObject*, int, int, TDragState state, bool&) {
        log_.push_back(std::string("other ") + NameOf(state));
    };
    const DragResult result = DragAlong(*thing_, {5, 5}, {{place_.get(), {60, 20}}, {other_.get(), {60, 20}}});
    EXPECT_FALSE(result.Taken);
    EXPECT_EQ(Taken(),
        (Log{"place enter 60,20", "place move 60,20", "place leave 60,20", "other enter", "other move", "other leave",
            "end none 0,0"}));
}

TEST_F(DragTest, GivingUpEndsWithoutADrop)
{
    DragAlong(*thing_, {5, 5}, {{place_.get(), {60, 20}}}, DragEnding::GiveUp);
    EXPECT_EQ(Taken(), (Log{"place enter 60,20", "place move 60,20", "place leave 60,20", "end none 0,0"}));
    place_->Events().OnDragOver = [this](TObject*, TObject*, int, int, TDragState, bool& accept) {
        accept = true;
        thing_->CancelDrag();
    };
    EXPECT_FALSE(DragFromTo(*thing_, {5, 5}, *place_, {60, 20}).Taken);
    EXPECT_EQ(Taken(), (Log{"end none 0,0"}));
    thing_->CancelDrag(); // no drag: nothing happens
}

TEST_F(DragTest, AWindowedControlGetsTheDropUnderTheControlsThatLieOnIt)
{
    TLabel label(nullptr);
    label.SetBounds(40, 0, 60, 40);
    label.SetParent(place_.get());
    EXPECT_TRUE(DragFromTo(*thing_, {5, 5}, *place_, {60, 20}).Taken);
    Taken();
    // A child window without handlers hands the drag on, in the parent's coordinates.
    TWinControl child(nullptr);
    child.SetBounds(40, 40, 50, 30);
    child.SetParent(place_.get());
    DragAlong(*thing_, {5, 5}, {{&child, {15, 5}}});
    EXPECT_EQ(Taken(), (Log{"place enter 55,45", "place move 55,45", "place drop 55,45", "end place 55,45"}));
}

TEST_F(DragTest, DisabledAndDeafControlsTakeNothing)
{
    EXPECT_FALSE(DragFromTo(*thing_, {5, 5}, *other_, {60, 20}).Taken);
    EXPECT_EQ(Taken(), (Log{"end none 0,0"}));
    place_->SetEnabled(false);
    EXPECT_FALSE(DragFromTo(*thing_, {5, 5}, *place_, {60, 20}).Taken);
    EXPECT_EQ(Taken(), (Log{"end none 0,0"}));
}

TEST_F(DragTest, WhatOtherProgramsDragIsRefused)
{
    EXPECT_FALSE(DropForeignText(*place_, {60, 20}));
    // Neither while a drag of our own is under way.
    other_->Events().OnDragOver = [this](TObject*, TObject*, int, int, TDragState, bool&) {
        EXPECT_FALSE(DropForeignText(*place_, {60, 20}));
    };
    DragFromTo(*thing_, {5, 5}, *other_, {60, 20});
    EXPECT_EQ(Taken(), (Log{"end none 0,0"}));
}

TEST_F(DragTest, TheTokenOfAnEndedDragIsWorthless)
{
    QMimeData old;
    const DragCarrier before = SetDragCarrier([&old](std::unique_ptr<QMimeData> data) {
        ASSERT_EQ(data->formats().size(), 1);
        EXPECT_FALSE(data->hasText());
        EXPECT_NE(DragSession::Of(data.get()), nullptr);
        old.setData(data->formats().first(), data->data(data->formats().first()));
    });
    thing_->RunDrag({});
    EXPECT_EQ(DragSession::Of(&old), nullptr);
    SetDragCarrier([&old](std::unique_ptr<QMimeData>) { EXPECT_EQ(DragSession::Of(&old), nullptr); });
    thing_->RunDrag({});
    SetDragCarrier(before);
}

TEST_F(DragTest, HandlersReadThePointerOfTheDrag)
{
    const TPoint expected = place_->ClientToScreen({60, 20});
    place_->Events().OnDragDrop = [&](TObject*, TObject*, int, int) {
        log_.push_back("drop");
        EXPECT_EQ(GetCursorPos(), expected);
        EXPECT_EQ(CurrentShiftState(), 0u); // the button is up by then
    };
    DragFromTo(*thing_, {5, 5}, *place_, {60, 20});
    EXPECT_EQ(Taken().at(3), "drop");
}

TEST_F(DragTest, HandlersMayFreeTheTarget)
{
    place_->Events().OnDragDrop = [this](TObject*, TObject*, int, int) { place_.reset(); };
    EXPECT_TRUE(DragFromTo(*thing_, {5, 5}, *place_, {60, 20}).Taken);
    EXPECT_EQ(Taken().back(), "end none 0,0");
    other_->Events().OnDragOver = [this](TObject*, TObject*, int, int, TDragState, bool& accept) {
        accept = true;
        other_.reset();
    };
    EXPECT_FALSE(DragFromTo(*thing_, {5, 5}, *other_, {60, 20}).Taken);
    EXPECT_EQ(Taken(), (Log{"end none 0,0"}));
    ProcessEvents();
}

TEST_F(DragTest, HandlersMayFreeTheSource)
{
    place_->Events().OnDragOver = [this](TObject*, TObject*, int, int, TDragState, bool& accept) {
        accept = true;
        thing_.reset();
    };
    EXPECT_FALSE(DragFromTo(*thing_, {5, 5}, *place_, {60, 20}).Taken); // nothing of the source is left to drop
    EXPECT_EQ(Taken(), Log{});
    thing_ = std::make_unique<Thing>(nullptr);
    thing_->SetBounds(0, 0, 50, 50);
    thing_->Widget()->show();
    Listen(*place_);
    thing_->Events().OnEndDrag = [this](TObject*, TObject*, int, int) {
        log_.push_back("end");
        thing_.reset();
    };
    DragFromTo(*thing_, {5, 5}, *place_, {60, 20});
    EXPECT_EQ(Taken().back(), "end");
    ProcessEvents();
}

TEST_F(DragTest, ExceptionsOfHandlersGoToTheApplicationAndTheDragEnds)
{
    std::vector<std::string> errors;
    Application().OnException = [&errors](std::exception_ptr error) {
        errors.push_back(MessageOf<EInvalidOperation>([&error] { std::rethrow_exception(error); }));
    };
    place_->Events().OnDragDrop = [](TObject*, TObject*, int, int) { throw EInvalidOperation(u"no room for it"); };
    DragFromTo(*thing_, {5, 5}, *place_, {60, 20});
    EXPECT_EQ(Taken().back(), "end place 60,20");
    // While it moves, one is enough: the user must be able to read it.
    place_->Events().OnDragOver = [](TObject*, TObject*, int, int, TDragState, bool& accept) {
        accept = true;
        throw EInvalidOperation(u"not here");
    };
    EXPECT_FALSE(DragFromTo(*thing_, {5, 5}, *place_, {60, 20}).Taken);
    Application().OnException = nullptr;
    EXPECT_EQ(errors, (std::vector<std::string>{"no room for it", "not here"}));
    EXPECT_EQ(Taken(), Log{"end none 0,0"});
    EXPECT_EQ(DragSession::Current(), nullptr);
}

TEST_F(DragTest, WithoutAScreenToDragOverItEndsAtOnce)
{
    thing_->RunDrag(QImage(8, 8, QImage::Format_RGB32));
    EXPECT_EQ(Taken(), Log{"end none 0,0"});
    EXPECT_EQ(DragSession::Current(), nullptr);
}

TEST_F(DragTest, OneDragAtATime)
{
    place_->Events().OnDragOver = [this](TObject*, TObject*, int, int, TDragState, bool&) { thing_->RunDrag({}); };
    DragFromTo(*thing_, {5, 5}, *place_, {60, 20});
    EXPECT_EQ(Taken(), (Log{"end none 0,0"}));
}

} // namespace vorn::test

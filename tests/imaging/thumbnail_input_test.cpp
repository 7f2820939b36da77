#include "platform/controls/application.h"
#include "platform/controls/keyboard.h"
#include "platform/imaging/thumbnail_view.h"
#include "tests/imaging/pictures.h"
#include "tests/support/drag.h"
#include "tests/support/mouse.h"
#include "tests/support/strings_print.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QToolTip>

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

/// 13 thumbnails of 40 by 40 in rows of five, three rows high; cell i has the id 100 + i.
class ThumbnailInputTest : public testing::Test {
protected:
    ThumbnailInputTest()
    {
        view_->SetThumbWidth(40);
        view_->SetThumbHeight(40);
        view_->SetHorizBorder(1);
        view_->SetVertBorder(1);
        view_->SetBounds(0, 0, 206, 124);
        Fill(13);
        view_->OnImageSelect = [this](TObject* sender, int idx) {
            EXPECT_EQ(sender, view_.get());
            EXPECT_EQ(view_->SelectedImage(), idx);
            log_.push_back(idx);
        };
        view_->Widget()->show();
        ProcessEvents();
    }

    void Fill(int count)
    {
        TIEBitmap bitmap;
        bitmap.SetImage(Plain(30, 20, 0xFF00FF00));
        for (int i = 0; i < count; ++i) {
            const int idx = view_->AppendImage();
            view_->SetImageID(idx, 100 + idx);
            view_->SetIEBitmap(idx, bitmap);
        }
    }
    TPoint Middle(int idx) const
    {
        const TRect cell = view_->ImageCell(idx);
        return {(cell.Left + cell.Right) / 2, (cell.Top + cell.Bottom) / 2};
    }
    void Press(Qt::Key key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(SurfaceOf(*view_), &event);
    }
    /// The way of a panel whose thumbnails are dragged.
    void DragOnMove()
    {
        view_->Events().OnMouseMove = [this](TObject*, TShiftState shift, int, int) {
            if (!(shift & ssLeft))
                return;
            view_->SetMouseInteract(0);
            view_->IEBeginDrag(true, -1);
        };
        view_->Events().OnEndDrag = [this](TObject*, TObject* target, int, int) {
            ends_.push_back(target);
            view_->IEEndDrag();
            view_->SetMouseInteract(mmiSelect);
        };
    }
    std::vector<int> Taken() { return std::exchange(log_, {}); }

    std::unique_ptr<TImageEnMView> view_ = std::make_unique<TImageEnMView>(nullptr);
    Mouse mouse_;
    std::vector<int> log_;
    std::vector<TObject*> ends_;
};

} // namespace

TEST_F(ThumbnailInputTest, APressSelects)
{
    mouse_.Press(*view_, Middle(7));
    EXPECT_EQ(view_->SelectedImage(), 7); // before the button is up
    mouse_.ReleaseThere();
    EXPECT_EQ(Taken(), std::vector{7});
    mouse_.Click(*view_, Middle(7));
    EXPECT_EQ(Taken(), std::vector{7}); // its hint can be asked for again
    mouse_.Click(*view_, {150, 110});   // beside all
    mouse_.Click(*view_, {41, 20});     // between two
    mouse_.Click(*view_, Middle(3), Qt::RightButton);
    EXPECT_EQ(view_->SelectedImage(), 7);
    view_->SetMouseInteract(0);
    mouse_.Click(*view_, Middle(3));
    EXPECT_EQ(view_->SelectedImage(), 7);
    view_->SetSelectedItem(2);
    EXPECT_EQ(Taken(), std::vector<int>{});
}

TEST_F(ThumbnailInputTest, MouseEventsAndDoubleClicksAreRaised)
{
    std::vector<std::string> log;
    view_->Events().OnMouseDown = [&](TObject*, TMouseButton, TShiftState, int x, int y) {
        log.push_back("down " + std::to_string(x) + "," + std::to_string(y));
    };
    view_->Events().OnDblClick = [&](TObject* sender) {
        EXPECT_EQ(sender, view_.get());
        log.push_back("twice " + std::to_string(view_->SelectedImage()));
    };
    mouse_.DoubleClick(*view_, {62, 20});
    EXPECT_EQ(log, (std::vector<std::string>{"down 62,20", "twice 1", "down 62,20"}));
}

TEST_F(ThumbnailInputTest, KeysMoveTheSelection)
{
    Fill(20); // 33 in rows of four beside the bar; a page is three rows
    const struct {
        int From;
        Qt::Key Key;
        int To;
    } cases[] = {
        {-1, Qt::Key_Down, 0},
        {0, Qt::Key_Right, 1},
        {3, Qt::Key_Right, 4},
        {4, Qt::Key_Left, 3},
        {0, Qt::Key_Left, 0},
        {32, Qt::Key_Right, 32},
        {1, Qt::Key_Down, 5},
        {5, Qt::Key_Up, 1},
        {1, Qt::Key_Up, 1},
        {30, Qt::Key_Down, 32},
        {32, Qt::Key_Down, 32},
        {9, Qt::Key_Home, 0},
        {9, Qt::Key_End, 32},
        {2, Qt::Key_PageDown, 14},
        {29, Qt::Key_PageDown, 32},
        {14, Qt::Key_PageUp, 2},
        {6, Qt::Key_PageUp, 2},
    };
    for (const auto& c : cases) {
        view_->SetSelectedItem(c.From);
        Taken();
        Press(c.Key);
        EXPECT_EQ(view_->SelectedImage(), c.To) << c.From << ", key " << c.Key;
        EXPECT_EQ(Taken(), c.From == c.To ? std::vector<int>{} : std::vector{c.To});
        EXPECT_GE(view_->ImageCell(c.To).Top, 0);
        EXPECT_LE(view_->ImageCell(c.To).Bottom, view_->ClientHeight());
    }
}

TEST_F(ThumbnailInputTest, WithoutLeaveToSelectTheKeysAreTheParents)
{
    Fill(50);
    view_->SetKeyInteract(0);
    view_->SetSelectedItem(0);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_End})
        Press(key);
    EXPECT_EQ(view_->ScrollPosition().Y, 0);
    EXPECT_EQ(view_->SelectedImage(), 0);
    EXPECT_EQ(Taken(), std::vector<int>{});
    EXPECT_TRUE(view_->MoveSelection(VK_END)) << "whoever gets them may use them";
    EXPECT_EQ(Taken(), std::vector{view_->GetImageCount() - 1});
}

TEST_F(ThumbnailInputTest, TheHintIsTheTextUnderThePointer)
{
    view_->SetHint(u"simboli");
    view_->SetImageBottomText(1, u"Corona");
    const auto hintAt = [&](const TRect& cell) {
        mouse_.Rest(*view_, {(cell.Left + cell.Right) / 2, (cell.Top + cell.Bottom) / 2});
        return Application().ShownHint();
    };
    EXPECT_EQ(hintAt(view_->ImageCell(1)), u"Corona");
    EXPECT_EQ(hintAt(view_->ImageCell(0)), u"simboli") << "an entry without a text";
    view_->SetShowText(true);
    EXPECT_EQ(hintAt(view_->ImageCell(1)), u"simboli") << "the text is seen anyway";
}

TEST_F(ThumbnailInputTest, AnEmptyViewBearsKeysAndClicks)
{
    view_->Clear();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End, Qt::Key_PageDown})
        Press(key);
    mouse_.Click(*view_, {20, 20});
    EXPECT_EQ(view_->SelectedImage(), -1);
    EXPECT_EQ(Taken(), std::vector<int>{});
}

TEST_F(ThumbnailInputTest, TheWheelScrollsByRows)
{
    Fill(50);
    QWidget* surface = SurfaceOf(*view_);
    QWheelEvent event({20, 20}, surface->mapToGlobal(QPointF(20, 20)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
        Qt::NoScrollPhase, false);
    QApplication::sendEvent(surface, &event);
    EXPECT_FALSE(event.isAccepted()); // so the toolkit hands it to what lies behind
    QApplication::sendEvent(surface->parentWidget(), &event);
    EXPECT_EQ(view_->ScrollPosition().Y, 39); // three steps of a third of a row
}

TEST_F(ThumbnailInputTest, FocusComesByTabAndClickAndIsSeen)
{
    view_->SetSelectedItem(0);
    EXPECT_TRUE(view_->TabStop());
    view_->Widget()->activateWindow();
    SurfaceOf(*view_)->clearFocus();
    ProcessEvents();
    const QImage without = PictureOf(*view_);
    view_->Widget()->setFocus();
    EXPECT_TRUE(view_->Focused());
    const QImage with = PictureOf(*view_);
    EXPECT_NE(with, without);
    EXPECT_EQ(with.copy(42, 0, 164, 124), without.copy(42, 0, 164, 124)); // only in the selected cell
    view_->SetSelectedItem(-1);
    EXPECT_NE(PictureOf(*view_).pixel(100, 0), without.pixel(100, 0)); // round the whole if there is none
    EXPECT_EQ(SurfaceOf(*view_)->focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(view_->Widget()->focusPolicy(), Qt::NoFocus);
}

TEST_F(ThumbnailInputTest, ScreenReadersHearTheSelectedText)
{
    view_->SetCaption(u"Simboli");
    view_->SetImageBottomText(1, u"Corona\r\nProtesi");
    view_->SetSelectedItem(1);
    EXPECT_EQ(SurfaceOf(*view_)->accessibleName(), QString("Simboli"));
    EXPECT_EQ(SurfaceOf(*view_)->accessibleDescription(), QString("Corona Protesi"));
    view_->SetSelectedItem(2);
    EXPECT_EQ(SurfaceOf(*view_)->accessibleDescription(), QString());
}

TEST_F(ThumbnailInputTest, TheHintOfTheViewIsShown)
{
    view_->OnImageSelect = [this](TObject*, int idx) {
        view_->SetHint(u"entry " + IntToStr(idx));
        Application().ActivateHint(GetCursorPos());
    };
    mouse_.Click(*view_, Middle(4));
    EXPECT_EQ(Utf8(Application().ShownHint()), "entry 4");
    EXPECT_TRUE(QToolTip::isVisible()) << "still, with the button up";
    Application().HideHint();
    mouse_.Click(*view_, {150, 110}); // beside all thumbnails
    EXPECT_FALSE(QToolTip::isVisible());
    mouse_.Rest(*view_, Middle(0));
    EXPECT_EQ(Utf8(Application().ShownHint()), "entry 4");
    Application().HideHint();
}

TEST_F(ThumbnailInputTest, AThumbnailIsDraggedOntoAView)
{
    DragOnMove();
    TImageEnView target(nullptr);
    target.SetBounds(300, 0, 200, 200);
    target.Widget()->show();
    std::vector<std::string> drops;
    target.Events().OnDragOver = [&](TObject*, TObject* source, int, int, TDragState, bool& accept) {
        accept = dynamic_cast<TImageEnMView*>(source) != nullptr;
        EXPECT_EQ(view_->MouseInteract(), 0u);
    };
    target.Events().OnDragDrop = [&](TObject* sender, TObject* source, int x, int y) {
        EXPECT_EQ(sender, &target);
        const auto* panel = dynamic_cast<TImageEnMView*>(source);
        const int id = panel->GetImageID(panel->SelectedImage());
        drops.push_back(std::to_string(id) + " at " + std::to_string(x) + "," + std::to_string(y));
    };
    EXPECT_TRUE(DragFromTo(*view_, Middle(6), target, {100, 90}).Taken);
    EXPECT_EQ(drops, std::vector<std::string>{"106 at 100,90"});
    EXPECT_EQ(ends_, std::vector<TObject*>{&target});
    EXPECT_EQ(view_->MouseInteract(), mmiSelect);
    EXPECT_TRUE(DragFromTo(*view_, Middle(2), target, {1, 1}).Taken); // and again
    EXPECT_EQ(drops.back(), "102 at 1,1");
    EXPECT_EQ(Taken(), (std::vector{6, 2}));
}

TEST_F(ThumbnailInputTest, APressBesideTheThumbnailsDragsNothingButEnds)
{
    DragOnMove();
    view_->SetSelectedItem(3);
    EXPECT_FALSE(DragFromTo(*view_, {150, 110}, *view_, {10, 10}).Began);
    EXPECT_EQ(ends_, std::vector<TObject*>{nullptr});
    EXPECT_EQ(view_->MouseInteract(), mmiSelect); // the handler has put it back
    EXPECT_EQ(view_->SelectedImage(), 3);
    EXPECT_TRUE(DragFromTo(*view_, Middle(1), *view_, {10, 10}).Began);
    view_->Clear();
    EXPECT_FALSE(DragFromTo(*view_, {10, 10}, *view_, {10, 10}).Began);
    EXPECT_EQ(ends_.size(), 3u);
}

TEST_F(ThumbnailInputTest, OnlyOneIsDraggedAtATimeAndTheOtherWorksOn)
{
    DragOnMove();
    TImageEnMView other(nullptr);
    other.SetBounds(300, 0, 200, 200);
    other.AppendImage();
    other.AppendImage();
    other.Widget()->show();
    int ends = 0;
    other.Events().OnEndDrag = [&](TObject*, TObject*, int, int) { ++ends; };
    other.SetSelectedItem(0);
    other.Events().OnMouseMove = [&](TObject*, TShiftState, int, int) { other.IEBeginDrag(true, -1); };
    other.Events().OnDragOver = [](TObject*, TObject*, int, int, TDragState, bool& accept) { accept = true; };
    other.Events().OnDragDrop = [&](TObject*, TObject*, int, int) {
        Mouse().Drag(other, {10, 10}, {14, 14});
        EXPECT_GT(ends, 0);
        EXPECT_TRUE(ends_.empty()) << "the drag that is under way isn't over";
    };
    EXPECT_TRUE(DragFromTo(*view_, Middle(1), other, {10, 10}).Taken);
    EXPECT_EQ(ends_.size(), 1u);
}

TEST_F(ThumbnailInputTest, ADragMayWaitForTheMouseToMove)
{
    view_->Events().OnMouseDown
        = [this](TObject*, TMouseButton, TShiftState, int, int) { view_->IEBeginDrag(false, 3); };
    EXPECT_TRUE(DragFromTo(*view_, Middle(1), *view_, {10, 10}).Began); // the helper moves by 2 + 1
    view_->Events().OnMouseDown
        = [this](TObject*, TMouseButton, TShiftState, int, int) { view_->IEBeginDrag(false, 4); };
    EXPECT_FALSE(DragFromTo(*view_, Middle(1), *view_, {10, 10}).Began);
    mouse_.Move(*view_, Middle(5)); // the button is up: it waits no longer
    mouse_.SetModifiers(Qt::NoModifier);
    EXPECT_EQ(view_->SelectedImage(), 1);
}

TEST_F(ThumbnailInputTest, HandlersMayFreeTheView)
{
    view_->OnImageSelect = [this](TObject*, int) { view_.reset(); };
    mouse_.Click(*view_, Middle(1));
    EXPECT_EQ(view_, nullptr);
    ProcessEvents();
}

TEST_F(ThumbnailInputTest, TheDropMayFreeTheViewThatIsDraggedFrom)
{
    DragOnMove();
    TImageEnView target(nullptr);
    target.SetBounds(300, 0, 200, 200);
    target.Widget()->show();
    target.Events().OnDragOver = [](TObject*, TObject*, int, int, TDragState, bool& accept) { accept = true; };
    target.Events().OnDragDrop = [this](TObject*, TObject*, int, int) { view_.reset(); };
    EXPECT_TRUE(DragFromTo(*view_, Middle(6), target, {100, 90}).Taken);
    EXPECT_EQ(view_, nullptr);
    EXPECT_TRUE(ends_.empty());
    ProcessEvents();
}

} // namespace vorn::test

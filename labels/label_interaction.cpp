#include "labels/DrLabel.h"
#include "platform/controls/popup_menu.h"
#include "platform/controls/win_control.h"

namespace vorn {

namespace {

constexpr TRect DragHandle{0, 0, 10, 10};
constexpr TShiftState SelectionKeys = ssShift | ssAlt | ssCtrl; // the buttons are no part of what OnSelect tells

} // namespace

void TDRLabel::Join(TDRLabelTimer& timer)
{
    timer.ComponentList().Add(this);
    // Shows the selection at once, not only at the first tick.
    if (!timer.Enabled())
        timer.TimeBLink(this);
    timer.SetEnabled(true);
}

void TDRLabel::Leave()
{
    FInList = false;
    inReposition = false;
    FHandleShown = false;
    FInverted = false;
    SetCursor(crDefault);
    TDRLabelTimer* timer = BTimer();
    if (timer)
        timer->ComponentList().Extract(this);
    Font().SetColor(FFontColor);
    Invalidate();
    if (timer && timer->ComponentList().Count() == 0)
        timer->SetEnabled(false);
}

void TDRLabel::Add()
{
    TDRLabelTimer* timer = BTimer();
    if (!timer || FInList)
        return;
    FInList = true;
    FFontColor = Font().Color();
    Join(*timer);
}

void TDRLabel::AddToList(bool notify)
{
    if (!BTimer())
        return;
    const TLifeWatch watch(this);
    TShiftState shift = 0;
    if (!FInList) {
        FInList = true;
        FFontColor = Font().Color();
        shift = CurrentShiftState() & SelectionKeys;
        if (!(shift & ssShift)) {
            // The others' handlers may free this label, take it out or in, free its timer, or raise.
            const auto listed = [this] { return BTimer() && BTimer()->ComponentList().IndexOf(this) >= 0; };
            try {
                BTimer()->Clear();
            } catch (...) {
                if (watch.Alive())
                    FInList = listed();
                throw;
            }
            if (!watch.Alive() || !FInList)
                return;
            if (!BTimer()) {
                FInList = false;
                return;
            }
            if (listed())
                return;
        }
        Join(*BTimer());
    } else {
        Leave();
    }
    if (notify)
        Raise(OnSelect, this, FInList, shift);
}

void TDRLabel::FTimerLink(TColor, TColor, TDRBlink)
{
    Font().SetColor(Font().Color() == Color() ? FFontColor : Color());
}

void TDRLabel::ShowTick(bool inverted)
{
    const bool changed = inverted != FInverted || ShowDrag != FHandleShown;
    FHandleShown = ShowDrag;
    FInverted = inverted;
    if (changed)
        Invalidate();
}

bool TDRLabel::GlyphLive() const
{
    return FImages && FGliphVisible && FImageIndex != -1;
}

bool TDRLabel::CursorOnGlyph() const
{
    return PtInRect(GlyphRect(), ScreenToClient(GetCursorPos()));
}

void TDRLabel::RequestContextMenu()
{
    WMContextMenu(GetCursorPos());
}

void TDRLabel::WMLButtonDown(const TMouseMessage& message)
{
    const TLifeWatch watch(this);
    TLabel::WMLButtonDown(message);
    if (!watch.Alive())
        return;
    if (ShowDrag && Cursor() == crSizeAll) {
        inReposition = true;
        return;
    }
    if (!GlyphLive() || !CursorOnGlyph()) {
        if (BlinkOnClick)
            AddToList(true);
        return;
    }
    if (!OnGlyphClick && !GliphContextPopupOnClick)
        return;
    if (BlinkOnClick && !FInList)
        AddToList(true);
    if (!watch.Alive())
        return;
    if (OnGlyphClick)
        Raise(OnGlyphClick, this);
    else if (GliphContextPopupOnClick)
        RequestContextMenu();
}

void TDRLabel::WMLButtonUp(const TMouseMessage& message)
{
    const TLifeWatch watch(this);
    try {
        TLabel::WMLButtonUp(message);
    } catch (...) {
        if (watch.Alive())
            EndDrag(); // the button is up, whatever a handler of that raises
        throw;
    }
    if (watch.Alive())
        EndDrag();
}

void TDRLabel::EndDrag()
{
    if (!inReposition)
        return;
    inReposition = false;
    SetCursor(crDefault);
    if (FisMoved)
        Raise(OnSavePosEvent, this);
}

void TDRLabel::WMLButtonDblClk(const TMouseMessage& message)
{
    const TLifeWatch watch(this);
    TLabel::WMLButtonDblClk(message);
    if (!watch.Alive())
        return;
    if (BlinkOnClick && !FInList)
        AddToList(true);
    if (watch.Alive() && FInList)
        Raise(OnLabelClick, this);
}

void TDRLabel::WMLMouseMove(const TMouseMessage& message)
{
    // The base handler doesn't run: a label has no OnMouseMove.
    if (!ShowDrag)
        return;
    if (inReposition) {
        const TPoint cursor = GetCursorPos();
        SetBounds(Left() - oldPos.X + cursor.X, Top() - oldPos.Y + cursor.Y, Width(), Height());
        MoveList(oldPos, cursor);
        oldPos = cursor;
        FisMoved = true;
    } else if (FInList) {
        if (PtInRect(DragHandle, message.Pos)) {
            SetCursor(crSizeAll);
            oldPos = GetCursorPos();
        } else {
            SetCursor(crDefault);
        }
    } else {
        inReposition = false;
    }
}

void TDRLabel::MoveList(const TPoint& from, const TPoint& to)
{
    const TDRLabelTimer* timer = BTimer();
    if (!timer)
        return;
    TComponentList& list = timer->ComponentList();
    for (int i = 0; i < list.Count(); ++i) {
        auto& label = static_cast<TDRLabel&>(*list.Items(i));
        if (&label == this)
            continue;
        label.SetBounds(label.Left() + to.X - from.X, label.Top() + to.Y - from.Y, label.Width(), label.Height());
        label.FisMoved = true;
    }
}

TPopupMenu* TDRLabel::GetPopupMenu()
{
    const bool glyphMenu = FGliphPopupMenu && FImages && FGliphVisible && FImageIndex > -1 && CursorOnGlyph();
    TPopupMenu* const menu = glyphMenu ? FGliphPopupMenu : PopupMenu();
    const TLifeWatch watch(this);
    const TLifeWatch menuWatch(menu);
    if (!FInList)
        AddToList(true);
    // A handler may have freed this label, whose menu is then not to be opened for it, or the menu.
    return watch.Alive() && menuWatch.Alive() ? menu : nullptr;
}

void TDRLabel::DoContextPopup(const TPoint& mousePos, bool& handled)
{
    if (OnGliphContextPopup && FImages && FGliphVisible && FImageIndex > -1 && CursorOnGlyph())
        Raise(OnGliphContextPopup, this, mousePos, handled);
    else
        TLabel::DoContextPopup(mousePos, handled);
}

} // namespace vorn

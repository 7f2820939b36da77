#pragma once

#include "labels/blink_timer.h"
#include "labels/click_shape.h"
#include "labels/label_types.h"
#include "platform/controls/label.h"
#include "platform/graphics/image_list.h"

#include <memory>

namespace vorn {

/// The marker label: a text with an optional frame, shadow and glyph that can be selected, blinks while it is, and can
/// be dragged.
///
/// It knows nothing of charts and rows: it raises its events, and whoever sets them moves datasets and stores
/// positions. A handler may free the label, clear the selection or rebuild whatever it stands on.
class TDRLabel : public TLabel {
public:
    explicit TDRLabel(TComponent* AOwner);
    ~TDRLabel() override;

    // Appearance. Each setter stores and repaints; SetImages and SetImageIndex re-measure.
    TDRBorder Border() const { return FBorder; }
    void SetBorder(TDRBorder value);
    bool Ct3D() const { return FCtl3D; }
    void SetCtl3D(bool value);
    TColor ShadowColor() const { return FShadowColor; }
    void SetShadowColor(TColor value);
    /// Offset of the shadow in pixels, 1 or 2.
    std::uint8_t Deep() const { return FDeep; }
    /// Any value but 1 and 2 is ignored.
    void SetDeep(int value);
    TCustomImageList* Images() const { return FImages; }
    /// The list stays its owner's.
    void SetImages(TCustomImageList* value);
    /// -1 for no glyph.
    int ImageIndex() const { return FImageIndex; }
    void SetImageIndex(int value);
    bool GliphContextPopupOnClick = true; ///< a left click on the glyph opens the context menu
    TPopupMenu* GliphPopupMenu() const { return FGliphPopupMenu; }
    void SetGliphPopupMenu(TPopupMenu* value);
    bool GliphVisible() const { return FGliphVisible; }
    void SetGliphVisible(bool value);
    bool ShowDrag = false; ///< can be dragged, and shows a drag handle while selected
    /// Glyph position under alXNone and alYNone, in pixels of the label.
    int XPicture() const { return FXPicture; }
    void SetXPicture(int value);
    int YPicture() const { return FYPicture; }
    void SetYPicture(int value);
    TXAlign PictureXAlignment() const { return FPictureXAlignment; }
    void SetPictureXAlignment(TXAlign value);
    TYAlign PictureYAlignment() const { return FPictureYAlignment; }
    void SetPictureYAlignment(TYAlign value);
    /// The timer that this label blinks by; none once that is gone.
    TDRLabelTimer* BTimer() const { return FBTimer ? *FBTimer : nullptr; }
    /// A selected label leaves the old timer's list first, with its own colour and no event.
    void SetBlinkTimer(TDRLabelTimer* value);
    bool BlinkOnClick = true; ///< a click selects the label

    TNotifyEvent OnGlyphClick;
    TNotifyEvent OnLabelClick;
    TDRLabelSelectEvent OnSelect;
    TNotifyEvent OnSavePosEvent;
    TContextPopupEvent OnGliphContextPopup;

    /// The font colour to come back to when the label leaves the selection.
    TColor FontColor() const { return FFontColor; }
    void SetFontColor(TColor value) { FFontColor = value; }
    /// Has been dragged since it was created.
    bool isMoved() const { return FisMoved; }
    void SetisMoved(bool value) { FisMoved = value; }
    /// Selected.
    bool InList() const { return FInList; }

    /// Takes over look and behaviour of a template: not its caption, colour, place, size, tag, ShowDrag or FontColor.
    /// OnSelect and OnSavePosEvent only where this label has none. None does nothing.
    virtual void AssignProperties(const TDRLabel* Source);
    /// Joins the selection beside what is selected, with no event.
    void Add();
    /// Joins the selection, alone unless Shift is down, or leaves it. `notify` says whether OnSelect is raised.
    void AddToList(bool notify);
    /// One step of the blink mode blNone: the text comes and goes. The arguments are the timer's.
    void FTimerLink(TColor FHiColor, TColor FLoColor, TDRBlink FBlink);

    /// The glyph's place in the label, whether or not it is shown. Zero without an image list.
    TRect GlyphRect() const;

    /// `holder` points to this label and is set to none when the label goes. One holder at a time.
    void SetHolder(TDRLabel** holder) { FHolder = holder; }

    /// A width that a form has given holds the glyph too.
    void Loaded() override;
    void WMLButtonDown(const TMouseMessage& message) override;
    void WMLButtonUp(const TMouseMessage& message) override;
    void WMLButtonDblClk(const TMouseMessage& message) override;
    void WMLMouseMove(const TMouseMessage& message) override;

protected:
    void Notification(TComponent* component, TOperation operation) override;
    void Paint() override;
    void AdjustBounds() override;
    int TextRoom() const override;
    void DoContextPopup(const TPoint& mousePos, bool& handled) override;
    TPopupMenu* GetPopupMenu() override;
    bool NotifiesSiblings() const override { return false; }

    bool inReposition = false; ///< a drag is under way
    bool FisMoved = false;
    TPoint oldPos; ///< last cursor point of the drag, in screen coordinates

private:
    friend class TDRLabelTimer;

    /// The label's registration with its image list. It also tells that the list goes, so that a thousand labels need
    /// no notification of a thousand.
    class ImageLink : public TChangeLink {
    public:
        explicit ImageLink(TDRLabel& label) : label_(label) {}

    protected:
        void SenderGoes() override { label_.SetImages(nullptr); }

    private:
        TDRLabel& label_;
    };

    void ImageListChange(TObject* sender);
    int GlyphRoom() const;
    void PaintGlyph();
    void PaintFrame(const TRect& client);
    void PaintText(const TRect& client);
    void PaintDragHandle();
    bool GlyphLive() const;
    bool CursorOnGlyph() const;
    void RequestContextMenu();
    void Join(TDRLabelTimer& timer);
    void Leave();
    void EndDrag();
    void MoveList(const TPoint& from, const TPoint& to);
    /// Marks what a tick shows beside the font colour; painted with the label until it leaves the selection.
    void ShowTick(bool inverted);

    TDRLabelTimer::Handle FBTimer;
    TPopupMenu* FGliphPopupMenu = nullptr;
    bool FInList = false;
    bool FCtl3D = false;
    bool FGliphVisible = false;
    bool FHandleShown = false; // the last tick drew the drag handle
    bool FInverted = false;    // the last tick inverted the colours
    std::uint8_t FDeep = 1;
    TDRBorder FBorder = TDRBorder::boNone;
    TXAlign FPictureXAlignment = TXAlign::alXNone;
    TYAlign FPictureYAlignment = TYAlign::alYNone;
    TColor FFontColor;
    TColor FShadowColor = clBtnHighlight;
    std::unique_ptr<TChangeLink> FImageChangeLink;
    TCustomImageList* FImages = nullptr;
    int FImageIndex = -1;
    int FGlyphRoom = 0; // how much of the width was added to the text's when it was last fitted
    int FXPicture = 0;
    int FYPicture = 0;
    TDRLabel** FHolder = nullptr;
};

} // namespace vorn

#pragma once

#include "platform/controls/win_control.h"
#include "platform/imaging/bitmap.h"

#include <memory>
#include <utility>
#include <vector>

namespace vorn {

/// What the mouse does in a thumbnail view, as a set of bits by ordinal.
using TIEMMouseInteract = unsigned;
inline constexpr TIEMMouseInteract mmiSelect = 1u << 1;

/// What the keys do in a thumbnail view, as a set of bits by ordinal.
using TIEMKeyInteract = unsigned;
inline constexpr TIEMKeyInteract mkiMoveSelected = 1u << 0;

/// What a thumbnail view keeps of a bitmap: all of it, or only what it shows.
enum class TIEStoreType { ietNormal, ietThumb };

using TIEImageSelectEvent = std::function<void(TObject* Sender, int idx)>;

/// A window with a grid of pictures, of which one may be selected and dragged elsewhere.
///
/// Entries stand row by row in the order in which they were appended. Positions are client coordinates, in which the
/// grid moves as it scrolls. Operations on an entry raise EListError for an index outside the list.
class TImageEnMView : public TWinControl {
public:
    explicit TImageEnMView(TComponent* owner);
    ~TImageEnMView() override;

    // --- entries ---
    /// Adds an empty entry at the end and gives its index.
    int AppendImage();
    int GetImageCount() const { return static_cast<int>(entries_.size()); }
    /// Removes all entries; nothing is selected then.
    void Clear();
    /// A number that the application attaches.
    void SetImageID(int idx, int id);
    int GetImageID(int idx) const;
    void SetImageBottomText(int idx, StringView text);
    const String& GetImageBottomText(int idx) const;
    /// Stores a copy. The pixels are shared until one of the two is drawn on.
    void SetIEBitmap(int idx, const TIEBitmap& bitmap);
    /// Size of the bitmap that was stored; 0 for an empty entry.
    int GetImageWidth(int idx) const;
    int GetImageHeight(int idx) const;

    // --- selection ---
    /// An index outside the list selects none. Raises no event.
    void SetSelectedItem(int idx);
    /// -1: none.
    int SelectedImage() const { return selected_; }
    /// Scrolls the selected entry into sight, now and whenever another is selected or the window's size changes. The
    /// keyboard does so in any case.
    void SetSelectedImageAlwaysVisible(bool always);
    bool SelectedImageAlwaysVisible() const { return selectedAlwaysVisible_; }

    // --- looks ---
    /// Texts under the thumbnails; off at first.
    void SetShowText(bool show);
    bool ShowText() const { return showText_; }
    /// The largest size of a thumbnail, 1 to 4096 pixels. A picture is scaled down into it, never up.
    int ThumbWidth() const { return thumbSize_.X; }
    void SetThumbWidth(int width) { SetThumbSize({width, thumbSize_.Y}); }
    int ThumbHeight() const { return thumbSize_.Y; }
    void SetThumbHeight(int height) { SetThumbSize({thumbSize_.X, height}); }
    /// Pixels beside and between the thumbnails, 0 to 4096.
    int HorizBorder() const { return border_.X; }
    void SetHorizBorder(int width);
    int VertBorder() const { return border_.Y; }
    void SetVertBorder(int height);
    /// Number of columns; below 1, as many as fit.
    int GridWidth() const { return gridWidth_; }
    void SetGridWidth(int columns);
    TColor Background() const { return background_; }
    void SetBackground(TColor color);
    /// The frame of each thumbnail; clNone for none.
    TColor ThumbnailsBorderColor() const { return borderColor_; }
    void SetThumbnailsBorderColor(TColor color);
    /// With ietThumb, bitmaps stored from then on are kept only as they are shown, which saves memory; thumbnails
    /// enlarged later turn out coarse.
    TIEStoreType StoreType() const { return storeType_; }
    void SetStoreType(TIEStoreType type) { storeType_ = type; }

    // --- interaction ---
    TIEMMouseInteract MouseInteract() const { return mouseInteract_; }
    void SetMouseInteract(TIEMMouseInteract interact) { mouseInteract_ = interact; }
    /// Without mkiMoveSelected the keys are the parent window's.
    TIEMKeyInteract KeyInteract() const { return keyInteract_; }
    void SetKeyInteract(TIEMKeyInteract interact) { keyInteract_ = interact; }
    /// Drags the selected thumbnail's picture: at once, or once the pressed mouse has moved `threshold` pixels from
    /// here (-1: the system's distance). At once means that the call returns when the drag is over. Every drag ends
    /// in Events().OnEndDrag, one that can't begin too, because nothing is selected, the mouse was pressed beside all
    /// thumbnails or something else is being dragged. During a drag of this view it does nothing. The view may be gone
    /// afterwards.
    void IEBeginDrag(bool immediate, int threshold);
    /// Breaks off a drag of this view; without one it does nothing.
    void IEEndDrag();

    /// The user has selected an entry, by mouse or key. A press on the entry that is selected already raises it too.
    TIEImageSelectEvent OnImageSelect;

    /// What an arrow key, Home, End, PageUp or PageDown does to the selection, whatever KeyInteract says. False for any
    /// other key and in an empty list. The view may be gone afterwards.
    bool MoveSelection(unsigned key);

    // --- geometry, in client coordinates ---
    /// The visible area, without the scroll bars that are shown.
    TRect ClientRect() const override;
    /// The entry whose cell holds a point, or -1.
    int ImageAt(const TPoint& point) const;
    /// An entry's cell as it is scrolled now: the thumbnail's room, with its text.
    TRect ImageCell(int idx) const;
    TPoint ScrollPosition() const { return scroll_; }
    void SetScrollPosition(const TPoint& position);
    /// Scrolls as little as needed.
    void ScrollInView(int idx);

    /// Arrows, Home, End and the page keys select, if KeyInteract lets them.
    bool KeyDown(unsigned key, TShiftState shift) override;
    void WMLButtonDown(const TMouseMessage& message) override;
    void WMLButtonUp(const TMouseMessage& message) override;
    void WMLMouseMove(const TMouseMessage& message) override;

protected:
    QWidget* CreateWidget() override;
    void PaintBackground(TCanvas& canvas, const TRect& part) override;
    void Resized() override;
    void TextChanged() override;
    void FontChanged() override;
    /// The text of the entry there, if it isn't shown under the thumbnail anyway.
    const String& HintAt(const TPoint& point) const override;

private:
    class Area;
    struct Entry;

    // --- entries ---
    Entry& At(int idx) const;
    void MakeThumbnail(Entry& entry) const;
    void SetThumbSize(const TPoint& size);
    void Describe();

    // --- grid, in content coordinates: not scrolled ---
    TPoint CellSize() const;
    /// From one cell to the next.
    TPoint Pitch() const;
    TRect ContentCell(int idx) const;
    int ColumnsIn(int width) const;
    TPoint Extent(int columns) const;
    /// The entries that may show in rows of the client area: first and one past the last.
    std::pair<int, int> EntriesBetween(int top, int bottom) const;
    Area* MakeArea() const;
    /// The grid has another shape.
    void Rearrange();
    void InvalidateCell(int idx);

    // --- selection and drag ---
    /// As the user's doing: raises OnImageSelect. The view may be gone afterwards.
    void SelectByUser(int idx);
    /// Where a key leads from the selected entry; -1 for a key without meaning here.
    int KeyTarget(unsigned key) const;
    void StartDrag();

    // --- painting ---
    void PaintEntry(TCanvas& canvas, int idx) const;
    void PaintSelection(TCanvas& canvas) const;
    /// A cell with the frame around it.
    TRect Framed(TRect cell) const;

    std::vector<std::unique_ptr<Entry>> entries_;
    int selected_ = -1;
    TPoint thumbSize_{100, 100};
    TPoint border_{4, 4};
    int gridWidth_ = -1;
    int columns_ = 1;
    int textLines_ = 1; // of the longest text so far
    TColor background_ = clBtnFace;
    TColor borderColor_ = clNone;
    TIEStoreType storeType_ = TIEStoreType::ietNormal;
    TIEMMouseInteract mouseInteract_ = mmiSelect;
    TIEMKeyInteract keyInteract_ = mkiMoveSelected;
    bool showText_ = false;
    bool selectedAlwaysVisible_ = false;
    bool pressedBeside_ = false; // the last press hit no thumbnail
    int dragThreshold_ = -1;     // a drag waits for the mouse to move that far; -1: none waits
    TPoint dragFrom_;
    TPoint scroll_;
    Area* area_ = nullptr; // valid while the window lives
};

} // namespace vorn

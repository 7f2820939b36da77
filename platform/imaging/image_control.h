#pragma once

#include "platform/controls/control.h"
#include "platform/imaging/bitmap.h"

namespace vorn {

/// A picture that a control shows or a program keeps, saves and prints.
class TPicture : public TPersistent {
public:
    /// A full copy of a TIEBitmap or of another picture; raises EConvertError for anything else.
    void Assign(const TPersistent& source) override;
    /// Empties it.
    void Clear();
    bool IsEmpty() const { return bitmap_.IsEmpty(); }
    /// Pixels; 0 when empty.
    int Width() const { return bitmap_.Width(); }
    int Height() const { return bitmap_.Height(); }
    /// Writes a PNG. Raises EStreamError that names the file; what was there before then stays.
    void SaveToFile(StringView fileName) const;

    /// The pixels as they are drawn, for code that knows the toolkit: valid until the picture changes.
    const QImage& Image() const { return bitmap_.Picture(); }

private:
    friend class TImage;

    TIEBitmap bitmap_;
    std::function<void()> changed_; // its control follows
};

/// Shows a picture on its parent: at the left top corner, in the middle, or as large as the control.
class TImage : public TGraphicControl {
public:
    explicit TImage(TComponent* owner);
    ~TImage() override;

    TPicture& Picture() { return picture_; }
    const TPicture& Picture() const { return picture_; }
    /// Drawn as large as the control, whatever its proportions.
    bool Stretch() const { return stretch_; }
    void SetStretch(bool stretch);
    /// In the middle instead of at the left top corner; a larger picture loses as much on both sides.
    bool Center() const { return center_; }
    void SetCenter(bool center);
    /// The control takes the size of its picture, now and whenever that changes; an empty one leaves it.
    bool AutoSize() const { return autoSize_; }
    void SetAutoSize(bool autoSize);

protected:
    void Paint() override;

private:
    void FitPicture();

    TPicture picture_;
    bool stretch_ = false;
    bool center_ = false;
    bool autoSize_ = false;
};

} // namespace vorn

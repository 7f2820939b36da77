#pragma once

#include "platform/imaging/bitmap.h"
#include "platform/system/types.h"

namespace vorn {

class TImageEnView;

/// The picture, such as an x-ray, that the chart can show in place of its background: a file, resampled once when it is
/// loaded.
class TExternalPicture {
public:
    enum class TLoad {
        Done,
        ListOfFiles, ///< the name is one of several files, which is refused
        Missing,     ///< there is no such file
        Waits,       ///< for a background to size the picture by
        Unreadable,  ///< the file holds no picture
        TooLarge     ///< it can't be brought to its size
    };

    /// A "," and a width in pixels may follow the name until it is loaded.
    const String& File() const { return file_; }
    /// Another file: what was loaded is dropped.
    void Name(StringView file);
    /// There is a picture to show.
    bool Held() const { return !picture_.IsEmpty(); }
    /// It is to be loaded later.
    bool Waiting() const { return waiting_; }
    void SetWaiting(bool waiting) { waiting_ = waiting; }
    /// 0 transparent to 255 opaque.
    std::int16_t Opacity() const { return opacity_; }
    /// For this picture and, at once, for layer 0 of the view, if there is one.
    void SetOpacity(std::int16_t opacity, TImageEnView* view);

    /// Fits the file into a size in pixels: the one asked for or, if its X is 0, the background's. A width behind the
    /// name wins, and is taken off it. Raises EConvertError for a width that is no integer.
    TLoad Load(const TPoint& asked, const TPoint& background);
    /// Reads the file anew at a size a tenth above or below the one that is shown. False, and nothing changes, if there
    /// is no picture any more.
    bool Step(const TPoint& shown, bool larger);
    /// Puts it onto the view's current layer, which is layer 0.
    void Show(TImageEnView& view) const;
    /// Forgets picture and file.
    void Reset();

private:
    String file_;
    TIEBitmap picture_;
    std::int16_t opacity_ = 250;
    bool waiting_ = false;
};

} // namespace vorn

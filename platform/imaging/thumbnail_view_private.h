#pragma once

#include "platform/imaging/thumbnail_view.h"

#include <QtGui/QImage>

namespace vorn {

struct TImageEnMView::Entry {
    int Id = 0;
    String BottomText;
    TIEBitmap Bitmap; // empty if only the thumbnail is kept
    TPoint Size;      // of the bitmap that was stored
    QImage Thumbnail; // as it is painted
};

} // namespace vorn

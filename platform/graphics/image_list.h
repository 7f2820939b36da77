#pragma once

#include "platform/graphics/canvas.h"
#include "platform/system/component.h"
#include "platform/system/stream.h"

#include <memory>
#include <vector>

class QImage;

namespace vorn {

class TCustomImageList;

/// A registration with an image list: OnChange is called with the list as Sender when its images change.
class TChangeLink : public TObject {
public:
    ~TChangeLink() override;
    TNotifyEvent OnChange;

private:
    friend class TCustomImageList;
    TCustomImageList* sender_ = nullptr;
};

/// Images of one size.
class TCustomImageList : public TComponent {
public:
    explicit TCustomImageList(TComponent* owner = nullptr, int width = 16, int height = 16);
    ~TCustomImageList() override;

    int Width() const { return width_; }
    int Height() const { return height_; }
    /// Removes all images.
    void SetSize(int width, int height);
    int Count() const;
    /// Adds a picture in any format, scaled to the list's size. Raises EConvertError for what is no picture.
    int AddPicture(std::span<const std::byte> encoded);
    int AddImage(const QImage& image);
    void Clear();
    /// Draws one image with its left top corner at the point; an index outside the list draws nothing.
    void Draw(TCanvas& canvas, int x, int y, int index) const;

    void RegisterChanges(TChangeLink* link);
    void UnRegisterChanges(TChangeLink* link);

private:
    void Change();

    int width_;
    int height_;
    std::vector<QImage> images_;
    std::vector<TChangeLink*> links_;
};

using TImageList = TCustomImageList;

} // namespace vorn

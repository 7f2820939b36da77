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

protected:
    /// The list is going; it is still whole, and this registration with it.
    virtual void SenderGoes() {}

private:
    friend class TCustomImageList;
    TCustomImageList* sender_ = nullptr;
    std::size_t place_ = 0; // among the list's links
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
    /// The same, grey and half as strong.
    void DrawDisabled(TCanvas& canvas, int x, int y, int index) const;

    void RegisterChanges(TChangeLink* link);
    void UnRegisterChanges(TChangeLink* link);

protected:
    /// The images have changed: tells those who registered.
    virtual void Change();

private:
    template <typename F>
    void TellLinks(F tell);
    void CloseGaps();

    int width_;
    int height_;
    std::vector<QImage> images_;
    // In order of registration. One that left is a gap until enough of them are worth closing, so that a thousand
    // labels come and go without a search each.
    std::vector<TChangeLink*> links_;
    std::size_t gaps_ = 0;
    int telling_ = 0; // links are being called: places stay as they are
};

using TImageList = TCustomImageList;

} // namespace vorn

#pragma once

#include "platform/graphics/image_list.h"

namespace vorn {

/// Images with alpha that carry names.
class TPngImageList : public TCustomImageList {
public:
    explicit TPngImageList(TComponent* owner = nullptr, int width = 16, int height = 16);
    ~TPngImageList() override;

    /// The colour that the images were made to lie on. They carry alpha, so drawing them doesn't need it.
    TColor Background() const { return background_; }
    void SetBackground(TColor color) { background_ = color; }

    /// Adds a PNG and gives its index. Raises EConvertError, which names the image, for anything else.
    int AddPng(StringView name, std::span<const std::byte> encoded);
    /// Empty for an image without a name and for an index outside the list.
    const String& ImageName(int index) const;

protected:
    void Change() override;

private:
    std::vector<String> names_; // one per image
    String nextName_;
    TColor background_ = clWindow;
};

} // namespace vorn

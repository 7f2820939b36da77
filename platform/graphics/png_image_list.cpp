#include "platform/graphics/png_image_list.h"

#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

#include <algorithm>
#include <array>

namespace vorn {

namespace {

bool IsPng(std::span<const std::byte> encoded)
{
    constexpr std::array signature{std::byte{0x89}, std::byte{'P'}, std::byte{'N'}, std::byte{'G'}, std::byte{'\r'},
        std::byte{'\n'}, std::byte{0x1A}, std::byte{'\n'}};
    return encoded.size() >= signature.size() && std::equal(signature.begin(), signature.end(), encoded.begin());
}

} // namespace

TPngImageList::TPngImageList(TComponent* owner, int width, int height) : TCustomImageList(owner, width, height) {}

TPngImageList::~TPngImageList()
{
    Destroying();
}

int TPngImageList::AddPng(StringView name, std::span<const std::byte> encoded)
{
    if (!IsPng(encoded))
        throw EConvertError(u"The image \"" + String(name) + u"\" is no PNG");
    nextName_ = name;
    try {
        return AddPicture(encoded);
    } catch (const EConvertError& e) {
        nextName_.clear();
        throw EConvertError(u"The image \"" + String(name) + u"\": " + e.Message());
    }
}

const String& TPngImageList::ImageName(int index) const
{
    static const String none;
    return index >= 0 && static_cast<std::size_t>(index) < names_.size() ? names_[static_cast<std::size_t>(index)]
                                                                         : none;
}

void TPngImageList::Change()
{
    const auto count = static_cast<std::size_t>(Count());
    if (names_.size() < count)
        names_.push_back(std::exchange(nextName_, {}));
    names_.resize(count);
    TCustomImageList::Change();
}

} // namespace vorn

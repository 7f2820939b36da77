#include "platform/system/stream.h"

#include "platform/system/exceptions.h"

#include <algorithm>
#include <cstring>

namespace vorn {

Bytes ReadRest(TStream& stream)
{
    const std::size_t size = stream.Size();
    Bytes rest(size - std::min(stream.Position(), size));
    std::size_t got = 0;
    for (std::size_t part = 1; part > 0 && got < rest.size(); got += part)
        part = stream.Read(std::span(rest).subspan(got));
    rest.resize(got);
    return rest;
}

std::size_t TMemoryStream::Read(std::span<std::byte> buffer)
{
    if (position_ >= bytes_.size())
        return 0;
    const std::size_t count = std::min(buffer.size(), bytes_.size() - position_);
    if (count > 0)
        std::memcpy(buffer.data(), bytes_.data() + position_, count);
    position_ += count;
    return count;
}

void TMemoryStream::Write(std::span<const std::byte> buffer)
{
    if (buffer.empty())
        return;
    if (buffer.size() > bytes_.max_size() || position_ > bytes_.max_size() - buffer.size())
        throw EStreamError(u"A stream in memory can't grow to the size asked for");
    const std::size_t end = position_ + buffer.size();
    if (end > bytes_.size()) {
        try {
            bytes_.resize(end);
        } catch (const std::bad_alloc&) {
            throw EStreamError(u"Not enough memory for a stream");
        }
    }
    std::memcpy(bytes_.data() + position_, buffer.data(), buffer.size());
    position_ = end;
}

void TMemoryStream::Clear()
{
    bytes_.clear();
    position_ = 0;
}

} // namespace vorn

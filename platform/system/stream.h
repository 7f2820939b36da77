#pragma once

#include "platform/system/object.h"

#include <cstddef>
#include <span>
#include <vector>

namespace vorn {

using Bytes = std::vector<std::byte>;

/// A sequence of bytes with a position.
class TStream : public TObject {
public:
    /// Reads up to `buffer.size()` bytes and gives how many came.
    virtual std::size_t Read(std::span<std::byte> buffer) = 0;
    /// Raises EStreamError if not all bytes could be written.
    virtual void Write(std::span<const std::byte> buffer) = 0;
    virtual std::size_t Position() const = 0;
    virtual void SetPosition(std::size_t position) = 0;
    virtual std::size_t Size() const = 0;
};

/// Everything from the position on.
Bytes ReadRest(TStream& stream);

/// A stream in memory that grows as it is written.
class TMemoryStream : public TStream {
public:
    std::size_t Read(std::span<std::byte> buffer) override;
    void Write(std::span<const std::byte> buffer) override;
    std::size_t Position() const override { return position_; }
    /// A position past the end reads nothing; writing there fills the gap with zeros.
    void SetPosition(std::size_t position) override { position_ = position; }
    std::size_t Size() const override { return bytes_.size(); }
    void Clear();
    const Bytes& Memory() const { return bytes_; }

private:
    Bytes bytes_;
    std::size_t position_ = 0;
};

} // namespace vorn

#pragma once

#include "platform/system/strings.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// What each target defines: takes one input, aborts on a finding. Gives 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace vorn::fuzz {

/// A promise that holds for every input.
inline void Require(bool holds, const char* promise)
{
    if (holds)
        return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

/// The input as text. Read as UTF-8, so that characters above 255 come up and the corpora stay readable.
inline String Text(const std::uint8_t* data, std::size_t size)
{
    return FromUtf8({reinterpret_cast<const char*>(data), size});
}

} // namespace vorn::fuzz

#pragma once

#include <cstdint>

namespace vorn {

/// What a line of the diagnosis box shows.
enum class TDiagnosiShow : std::uint8_t { diagNone, diagSigla, diagSiglaDescr, diagDescr };

} // namespace vorn

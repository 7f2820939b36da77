#pragma once

#include "chart/dib_rec.h"
#include "platform/imaging/layer.h"

#include <cstdint>

namespace vorn {

/// What several concerns of the chart go by.

/// In percent. Bounds are measured at it, and the zoom never goes below.
inline constexpr int NaturalZoom = 100;
/// A dataset's Tag while the chart writes for the user; put back to 0 on every way out.
inline constexpr std::intptr_t WritingTag = -1;

inline bool IsSymbol(const TIELayer& layer)
{
    return layer.UserDataLen == SymbolLayerMark;
}

/// The record of a symbol layer, kept alive while its row is written: a rebuild in between frees the layer. None for
/// any other layer, whatever the application has attached to it.
inline std::shared_ptr<TDibRec> RecordOf(const TIELayer& layer)
{
    return IsSymbol(layer) ? std::static_pointer_cast<TDibRec>(layer.UserData) : nullptr;
}

} // namespace vorn

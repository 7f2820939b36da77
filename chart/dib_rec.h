#pragma once

#include "platform/system/types.h"

#include <array>
#include <cstdint>

namespace vorn {

/// A text of at most 60 characters of one byte each (Latin-1), its length in front.
struct TDibName {
    std::uint8_t Length = 0;
    std::array<char, 60> Chars{};

    /// Cuts behind 60 characters; a character that one byte can't hold becomes "?".
    void Set(StringView text);
    String Text() const;
};

/// One symbol placement as its layer holds it; the layer owns it.
struct TDibRec {
    std::int32_t Id = 0;       ///< the symbol's key in the catalogue
    std::int32_t key = 0;      ///< the row's own key, by which it is found again
    std::int32_t bmpwidth = 0; ///< natural size of the symbol in pixels
    std::int32_t bmpheight = 0;
    double Angle = 0;       ///< degrees, clockwise: the layer's rotation with the other sign
    std::int32_t Scale = 0; ///< percent of the natural size; 0 stands for 100 too
    TDibName Nome;
};
using PTDibRec = TDibRec*;

/// `UserDataLen` of a layer that shows a symbol placement, and of no other.
inline constexpr int SymbolLayerMark = 96;
static_assert(sizeof(TDibRec) == SymbolLayerMark);

} // namespace vorn

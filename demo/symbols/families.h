#pragma once

#include "demo/symbols/symbol_art.h"

namespace vorn::demo {

// The drawings by branch, one file each.
std::span<const SymbolArt> ConservativeSymbols();
std::span<const SymbolArt> EndodonticSymbols();
std::span<const SymbolArt> ProstheticSymbols();
std::span<const SymbolArt> SurgicalSymbols();
std::span<const SymbolArt> PeriodontalSymbols();
std::span<const SymbolArt> OrthodonticSymbols();
std::span<const SymbolArt> GeneralSymbols();

} // namespace vorn::demo

#pragma once

#include "platform/system/types.h"

namespace vorn {

class TDataSet;
class TImageEnMView;

/// Appends one thumbnail per row of a symbol catalogue, scaled and turned by the row's defaults, and selects the first.
/// The dataset is opened, and stands on its first row afterwards. An image that can't be read gives an entry without a
/// picture. Raises what the dataset raises for a missing column; nothing is appended then.
void CaricaSimboliMView(TImageEnMView& mview, TDataSet& ds);

} // namespace vorn

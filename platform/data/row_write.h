#pragma once

#include "platform/data/dataset.h"

namespace vorn {

/// Sets the fields of the row that is being written. May raise; the write is given up then.
using TRowWriter = std::function<void(TDataSet& row)>;

/// Edits the current row, lets `write` set its fields and posts it. False if a handler has taken the row away before
/// the post; one that cancels inside the post isn't noticed.
///
/// An edit that the application has begun on the row is joined: what was typed is posted with it. If anything raises,
/// only what this call began is given up, its own edit or the values that it set in somebody else's; the error passes
/// on. Handlers may move, close, reopen or free the dataset: no other row gets the values then. Raises EDatabaseError
/// on a closed, empty or read-only dataset.
bool WriteRow(TDataSet& dataset, const TRowWriter& write);

/// Appends a row, lets `write` set its fields and posts it. Gives whether there is such a row now.
///
/// An edit under way is posted first, as any move would; if that is refused it stays as it is. If anything raises
/// later, the new row is given up. Raises EDatabaseError on a closed or read-only dataset.
bool AppendRow(TDataSet& dataset, const TRowWriter& write);

} // namespace vorn

#pragma once

#include "platform/imaging/bitmap.h"
#include "platform/system/stream.h"

#include <map>

namespace vorn {

class TDataSet;
class TField;

/// The decoded pictures of the symbols on a chart. What many placements share is read and decoded once, and what the
/// catalogue holds unchanged since the last rebuild isn't decoded again.
class TSymbolImages {
public:
    /// A rebuild begins: the catalogue is looked at anew.
    void Begin() { ++round_; }
    /// The rebuild is over: what it hasn't asked for is dropped.
    void End();
    /// The picture of a placement's current row: its symbol's in the catalogue or, if that doesn't know the symbol, the
    /// row's own. None if there is none or it can't be read. Valid until the next call. Without a catalogue, or with a
    /// closed one, no symbol is known. Moves the catalogue; raises EDatabaseError for a missing column.
    const TIEBitmap* Of(const TDataSet& placements, TDataSet* catalogue);

private:
    struct Entry {
        unsigned Round = 0;
        Bytes Encoded;
        TIEBitmap Picture; // empty if it can't be read
    };
    const TIEBitmap* FromCatalogue(const TDataSet& catalogue, int id);
    void Fetch(const TField& blob);

    std::map<int, Entry> byId_;
    unsigned round_ = 0;
    TIEBitmap own_;
    TMemoryStream stream_;
};

} // namespace vorn

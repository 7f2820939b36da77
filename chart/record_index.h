#pragma once

#include "platform/system/types.h"

#include <unordered_map>
#include <vector>

namespace vorn {

class TDRLabel;
class TVornRec;

/// Finds records without walking their list; each answer is the one that the plain walk would give.
///
/// Holds borrowed pointers: it is emptied together with the list.
class TRecordIndex {
public:
    void Clear();
    /// Rows that the chart leaves out have an ordinal but no record.
    void AddSkippedRow() { byRow_.push_back(nullptr); }
    /// The record of the next row. It is in the list by now, and its Zona is final.
    void Add(TVornRec& record);
    /// The record's Zona has changed from `before`.
    void ZoneChanged(TVornRec& record, StringView before);

    int RowCount() const { return static_cast<int>(byRow_.size()); }
    /// None for an ordinal outside the rows and for a row without a record.
    TVornRec* OfRow(int ordinal) const;
    /// The first record whose label bears the key in its Tag.
    TVornRec* OfKey(std::intptr_t key) const;
    TVornRec* OfLabel(const TDRLabel* label) const;
    /// The last record, but for `except`, whose label stands in the stack of a zone; names are compared without regard
    /// to case, and of a name of several zones the first counts.
    TVornRec* LastOnZone(StringView zone, const TVornRec* except) const;

private:
    using Stack = std::vector<TVornRec*>; // in list order

    std::vector<TVornRec*> byRow_;
    std::unordered_map<std::intptr_t, TVornRec*> byKey_; // the first of each key
    // Made when first a label isn't the first of its key; it may also hold labels that have gone.
    mutable std::unordered_map<const TDRLabel*, TVornRec*> byLabel_;
    std::unordered_map<String, Stack> stacks_; // by folded first zone name
};

} // namespace vorn

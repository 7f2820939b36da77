#pragma once

#include "chart/chart_space.h"
#include "chart/record_index.h"
#include "chart/row_reader.h"
#include "chart/visit.h"
#include "chart/vorn_record.h"
#include "chart/zone_map.h"
#include "platform/system/lists.h"

#include <memory>

namespace vorn {

/// The records of the treatments dataset and their labels on the view.
class TTreatments {
public:
    TTreatments(const TChartSettings& settings, const TChartSpace& space, const TZoneMap& zones)
        : settings_(settings), space_(space), zones_(zones)
    {
    }

    /// In dataset order; rows with "stato" 4 have no record.
    const TObjectList<TVornRec>& Records() const { return records_; }
    const TRecordIndex& Index() const { return index_; }
    /// Which drawing of the rows this is.
    const TGeneration& Drawing() const { return drawing_; }
    /// The record of the dataset's current row; none if that row has none.
    TVornRec* Current() const { return current_; }
    void SetCurrent(TVornRec* record) { current_ = record; }

    /// Frees all records with their labels.
    void Clear();
    void AddSkippedRow() { index_.AddSkippedRow(); }
    /// A record for the next row, not in the list yet. Without a key it gets no label.
    std::unique_ptr<TVornRec> NewRecord() const;
    void GiveLabel(TVornRec& record, std::intptr_t key) const;
    void Add(std::unique_ptr<TVornRec> record);

    enum class TPlace {
        Kept,   ///< where it was, or on a stored position
        OnZone, ///< newly, for the record's zones
        NoZone  ///< there is none to stand on
    };
    /// Shows a row on the record's label and places it. `refresh` tells a label that stands on the chart already.
    TPlace Show(TVornRec& record, const TRowReading& reading, bool refresh);
    /// A child row shows on the label of its parent, if that has one.
    void ShowChild(std::int64_t parentKey, bool done) const;

    void MoveLabels(int dx, int dy) const;
    /// Places each label where the zoom shows the bounds that it had when its row was last read.
    void PlaceZoomed() const;
    /// The smallest rectangle that holds `area` and all labels.
    TRect Around(TRect area) const;
    /// True if a label stands on `zona` (case aside) with exactly that caption.
    bool Find(StringView zona, StringView caption) const;
    /// The last record with a label that does, or none.
    const TVornRec* FindLast(StringView zona, StringView caption) const;

private:
    void Dress(TDRLabel& label, const TRowReading& reading) const;
    TPlace Place(TVornRec& record, const TRowReading& reading);
    void PlaceOnZone(TVornRec& record, const TZone& zone) const;
    void StoreBounds(TVornRec& record) const;
    void SetZona(TVornRec& record, StringView value);

    const TChartSettings& settings_;
    const TChartSpace& space_;
    const TZoneMap& zones_;
    TGeneration drawing_;
    TRecordIndex index_;
    TObjectList<TVornRec> records_;
    TVornRec* current_ = nullptr; // an item of the list
};

} // namespace vorn

#pragma once

#include "platform/data/rows_watch.h"

namespace vorn {

/// Which drawing of a dataset's rows stands on the chart. It goes with the chart.
class TGeneration : public TObject {
public:
    /// What was drawn is gone or is being made anew.
    void Next() { ++number_; }
    unsigned Number() const { return number_; }

private:
    unsigned number_ = 0;
};

/// Asked after each call that may run a handler, which may free the chart, have it rebuilt, or close, reopen or free
/// the rows. Lives on the stack.
class TVisit {
public:
    /// Without rows only the chart and its drawing are watched.
    explicit TVisit(const TGeneration& drawing) : TVisit(drawing, nullptr) {}
    TVisit(const TGeneration& drawing, const TDataSet* rows)
        : drawing_(drawing), chart_(&drawing), number_(drawing.Number()), rows_(rows)
    {
    }

    /// There is still a chart.
    bool Alive() const { return chart_.Alive(); }
    /// And what is drawn on it is what was drawn when the visit began.
    bool SameDrawing() const { return Alive() && drawing_.Number() == number_; }
    /// The rows are open, and have been all the time.
    bool RowsOpen() const { return rows_.Open(); }
    /// All of it: the visit may go on.
    bool Current() const { return SameDrawing() && RowsOpen(); }
    /// Raises ERowsGone if it may not.
    void Check() const
    {
        if (!Current())
            throw ERowsGone(u"the chart or its rows were made anew meanwhile");
    }

private:
    const TGeneration& drawing_;
    TLifeWatch chart_;
    unsigned number_;
    TRowsWatch rows_;
};

} // namespace vorn

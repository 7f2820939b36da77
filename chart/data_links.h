#pragma once

#include "platform/data/data_link.h"
#include "platform/system/flag_scope.h"

namespace vorn {

/// What the links tell: the chart, which owns them.
class TChartFollowing {
public:
    /// Switched off, the chart takes no notice of its datasets, but for the current row.
    virtual bool Enabled() const = 0;
    /// The treatments were opened or closed, or there are more or fewer of them.
    virtual void ActiveChanged() = 0;
    /// The current treatment's row has changed.
    virtual void Reload() = 0;
    /// The treatment with this ordinal has become current.
    virtual void ScrollByBegin(int Distance) = 0;
    /// Another background, or a changed one, is current.
    virtual void ActiveChangedSfondi() = 0;
    virtual void CreaCollection() = 0;
    /// There are other symbol placements.
    virtual void ActiveChangedSimboli() = 0;

protected:
    ~TChartFollowing() = default;
};

/// What the chart's links have in common: the chart, and the guard against their own echo.
class TChartDataLink : public TDataLink {
public:
    explicit TChartDataLink(TChartFollowing& Source);

protected:
    /// Marks a call to the chart that this link has started; the call may even free the link.
    TFlagScope Operate() { return {*this, FinOperation}; }

    bool FinOperation = false; // inside such a call: the chart's own moves are not to come back to it
    TChartFollowing& FPanel;
};

/// Follows a dataset whose rows the chart draws one by one. Its window holds the whole dataset, so that ActiveRecord is
/// the row's ordinal.
class TRowsDataLink : public TChartDataLink {
public:
    using TChartDataLink::TChartDataLink;

    /// Ordinal of the row last seen as current.
    int CurRecord() const { return FCurRecord; }

    /// Keeps this link silent for the length of a rebuild that the chart starts by itself, and then does once what the
    /// notifications held back would have done after it.
    class RebuildScope {
    public:
        explicit RebuildScope(TRowsDataLink& link);
        ~RebuildScope()
        {
            if (watch_.Alive())
                link_.FinOperation = nested_;
        }
        RebuildScope(const RebuildScope&) = delete;
        RebuildScope& operator=(const RebuildScope&) = delete;
        /// The rows are as they will stay and controls are enabled again.
        void Finish();

    private:
        TRowsDataLink& link_;
        TLifeWatch watch_;
        const bool nested_;
    };

protected:
    void ActiveChanged() override;
    void DataEvent(TDataEvent event, std::intptr_t info) override;
    void DataSetChanged() override;

    /// What the chart draws from the rows is made anew.
    virtual void Rebuild() = 0;
    /// The rows are drawn; the current one may be another, or have changed.
    virtual void FollowCurrentRow() = 0;
    /// The dataset isn't being edited and the chart is switched on.
    bool Listens() const;
    /// Notes the current row; false if the chart is switched off and the row is the same.
    bool NoteScroll();

    int FCurRecord = 0;
    bool FRowsDrawn = false; // a rebuild has come to its end
};

/// Follows the treatments dataset.
class TDBVornDataLink : public TRowsDataLink {
public:
    using TRowsDataLink::TRowsDataLink;

protected:
    void ActiveChanged() override;
    void DataSetScrolled(int distance) override;
    void Rebuild() override;
    void FollowCurrentRow() override;
};

/// Follows the backgrounds dataset.
class TDBSfondiDataLink : public TChartDataLink {
public:
    using TChartDataLink::TChartDataLink;

protected:
    void ActiveChanged() override;
    void DataSetChanged() override;
    void DataSetScrolled(int distance) override;
};

/// Follows the symbol placements dataset.
class TDBSimgDataLink : public TRowsDataLink {
public:
    using TRowsDataLink::TRowsDataLink;

protected:
    void DataSetScrolled(int distance) override;
    void Rebuild() override;
    void FollowCurrentRow() override;
};

} // namespace vorn

#pragma once

#include "platform/data/dataset.h"

namespace vorn {

class TDataLink;

/// Joins one dataset with the links that follow it. Doesn't own either.
class TDataSource : public TComponent {
public:
    explicit TDataSource(TComponent* owner = nullptr);
    ~TDataSource() override;

    TDataSet* DataSet() const { return dataset_; }
    /// Links see the new dataset as opened, or as closed if it is none or not active.
    void SetDataSet(TDataSet* dataset);
    /// The dataset's state; dsInactive with none.
    TDataSetState State() const;

    TNotifyEvent OnStateChange;

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    friend class TDataLink;
    friend class TDataSet;
    void AddLink(TDataLink* link);
    void RemoveLink(TDataLink* link);
    /// Links may come and go while an event runs.
    void SendEvent(TDataEvent event, std::intptr_t info);

    /// One event on its way; links that go meanwhile are taken out of it.
    struct Dispatch {
        std::vector<TDataLink*> Pending;
        Dispatch* Outer;
        bool SourceGone = false;
    };

    TDataSet* dataset_ = nullptr;
    std::vector<TDataLink*> links_;
    Dispatch* dispatch_ = nullptr;
};

} // namespace vorn

#include "platform/data/data_source.h"

#include "platform/data/data_link.h"
#include "platform/data/rows_watch.h"
#include "platform/system/guards.h"

#include <algorithm>

namespace vorn {

TDataSource::TDataSource(TComponent* owner) : TComponent(owner) {}

TDataSource::~TDataSource()
{
    Destroying();
    if (dataset_) {
        std::erase(dataset_->dataSources_, this);
        dataset_->RemoveFreeNotification(this);
        dataset_ = nullptr;
    }
    while (!links_.empty()) {
        TDataLink* const link = links_.back();
        RemoveLink(link);
        link->source_ = nullptr;
        link->UpdateState();
    }
    for (Dispatch* running = dispatch_; running; running = running->Outer)
        running->SourceGone = true;
}

void TDataSource::SetDataSet(TDataSet* dataset)
{
    if (dataset == dataset_)
        return;
    const TLifeWatch self(this);
    const TLifeWatch next(dataset);
    if (dataset_) {
        std::erase(dataset_->dataSources_, this);
        dataset_->RemoveFreeNotification(this);
        dataset_ = nullptr;
        SendEvent(TDataEvent::deUpdateState, 0);
        if (!self.Alive() || dataset_) // a handler has given it another one
            return;
    }
    if (next.Alive() && !dataset->InState(csDestroying)) { // one that goes couldn't be let go any more
        dataset_ = dataset;
        dataset->dataSources_.push_back(this);
        dataset->FreeNotification(this);
        SendEvent(TDataEvent::deUpdateState, 0);
    }
}

TDataSetState TDataSource::State() const
{
    return dataset_ ? dataset_->State() : TDataSetState::dsInactive;
}

void TDataSource::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == TOperation::opRemove && component == dataset_)
        SetDataSet(nullptr);
}

void TDataSource::AddLink(TDataLink* link)
{
    links_.push_back(link);
}

void TDataSource::RemoveLink(TDataLink* link)
{
    std::erase(links_, link);
    for (Dispatch* running = dispatch_; running; running = running->Outer)
        std::replace(running->Pending.begin(), running->Pending.end(), link, static_cast<TDataLink*>(nullptr));
}

void TDataSource::SendEvent(TDataEvent event, std::intptr_t info)
{
    Dispatch running{links_, dispatch_};
    dispatch_ = &running;
    const ScopeExit done([&] {
        if (!running.SourceGone)
            dispatch_ = running.Outer;
    });
    TDataSet* const dataset = dataset_;
    const TRowsWatch rows(dataset);
    for (std::size_t i = 0; i < running.Pending.size() && !running.SourceGone; ++i) {
        if (ConcernsRows(event) && (dataset_ != dataset || !rows.Open()))
            break;
        if (TDataLink* const link = running.Pending[i])
            link->Receive(event, info, rows);
    }
    if (event == TDataEvent::deUpdateState && !running.SourceGone)
        Raise(OnStateChange, static_cast<TObject*>(this));
}

} // namespace vorn

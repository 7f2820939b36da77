#include "platform/data/dataset.h"

#include "platform/data/data_source.h"
#include "platform/data/rows_watch.h"
#include "platform/system/lists.h"
#include "platform/system/strings.h"

#include <algorithm>

namespace vorn {

namespace {

std::uint64_t NextOpening()
{
    static std::uint64_t last = 0;
    return ++last;
}

} // namespace

TDataSet::TDataSet(TComponent* owner) : TComponent(owner) {}

TDataSet::~TDataSet()
{
    Destroying(); // data sources let go here, and their links see a dataset that is no longer there
}

String TDataSet::DisplayName() const
{
    return Name().empty() ? String(u"dataset") : Name();
}

void TDataSet::SetActive(bool active)
{
    if (active == Active())
        return;
    if (active)
        DoOpen();
    else
        DoClose();
}

void TDataSet::DoOpen()
{
    const TLifeWatch watch(this);
    Raise(BeforeOpen, this);
    if (!watch.Alive() || Active())
        return;
    try {
        BuildFields(LoadRows());
    } catch (...) {
        loading_.clear();
        fieldsByName_.clear();
        fields_.clear();
        InternalClose();
        throw;
    }
    rows_ = std::exchange(loading_, {});
    opening_ = NextOpening();
    fieldsChanged_ = false;
    index_ = {};
    SetCurrent(0);
    bof_ = true;
    const TRowsWatch rows(this);
    if (Tell(rows, TDataSetState::dsBrowse) && Tell(rows, AfterOpen))
        Raise(AfterScroll, this);
}

void TDataSet::DoClose()
{
    const TRowsWatch rows(this);
    Raise(BeforeClose, this);
    if (!rows.Alive() || !Active() || !rows.Check())
        return;
    EndEditing();
    // Whoever holds on to a column may still look at it until the links have heard.
    const auto leaving = std::exchange(fields_, {});
    fieldsByName_.clear();
    rows_.clear();
    rows_.shrink_to_fit();
    index_ = {};
    SetCurrent(-1);
    InternalClose();
    SetState(TDataSetState::dsInactive);
    if (rows.Alive() && !Active())
        Raise(AfterClose, this);
}

std::vector<TFieldDef> TDataSet::LoadRows()
{
    loading_.clear();
    std::vector<TFieldDef> defs = InternalOpen();
    for (StoredRow& row : loading_)
        row.Values.resize(defs.size());
    return defs;
}

void TDataSet::BuildFields(const std::vector<TFieldDef>& defs)
{
    fieldsByName_.clear();
    fields_.clear();
    for (const TFieldDef& def : defs) {
        fields_.push_back(std::make_unique<TField>(*this, FieldCount(), def.Name, def.Type, def.Required, def.Size));
        fieldsByName_.emplace(FoldCase(def.Name), fields_.back().get()); // of two alike the first is found
    }
}

bool TDataSet::SameFields(const std::vector<TFieldDef>& defs) const
{
    return std::equal(fields_.begin(), fields_.end(), defs.begin(), defs.end(), [](const auto& field, const auto& def) {
        return field->name_ == def.Name && field->type_ == def.Type && field->required_ == def.Required
            && field->size_ == def.Size;
    });
}

void TDataSet::Refresh()
{
    if (!CheckBrowseMode())
        return;
    std::vector<TFieldDef> defs;
    try {
        defs = LoadRows();
    } catch (...) {
        loading_.clear();
        throw;
    }
    std::vector<StoredRow> rows = std::exchange(loading_, {});
    KeepRowIds(rows);
    const TBookmark here = GetBookmark();
    const bool others = OthersInPlace(rows);
    if (!SameFields(defs)) {
        BuildFields(defs);
        opening_ = NextOpening();
        fieldsChanged_ = true;
    }
    rows_ = std::move(rows);
    index_ = {};
    const int found = FindRow(here);
    SetCurrent(found >= 0 ? found : std::min(here.Hint, RecordCount() - 1));
    if (!others) {
        SendChange();
        return;
    }
    const TControlsDisabled told(*this); // whoever goes by the number of rows hears that it says nothing here
}

/// Whether rows that are as many as before are others, or in another order.
bool TDataSet::OthersInPlace(const std::vector<StoredRow>& rows) const
{
    if (rows.size() != rows_.size())
        return false;
    const auto key = static_cast<std::size_t>(std::max(KeyColumn(), 0));
    const auto same = [&](const StoredRow& a, const StoredRow& b) {
        const bool keyed = KeyColumn() >= 0 && key < a.Values.size() && key < b.Values.size() && !IsNull(a.Values[key])
            && !IsNull(b.Values[key]);
        return keyed ? SameValue(a.Values[key], b.Values[key])
                     : std::equal(a.Values.begin(), a.Values.end(), b.Values.begin(), b.Values.end(), SameValue);
    };
    return !std::equal(rows.begin(), rows.end(), rows_.begin(), same);
}

/// Gives rows that were there before their old identity: by their key, or by their ordinal without one.
void TDataSet::KeepRowIds(std::vector<StoredRow>& rows) const
{
    const int key = KeyColumn();
    if (key < 0) {
        for (std::size_t i = 0; i < std::min(rows.size(), rows_.size()); ++i)
            rows[i].Id = rows_[i].Id;
        return;
    }
    const auto keyText = [column = static_cast<std::size_t>(key)](const StoredRow& row) -> String {
        if (column >= row.Values.size())
            return {};
        const TValue& value = row.Values[column];
        if (const auto* number = std::get_if<std::int64_t>(&value))
            return IntToStr(*number);
        const auto* text = std::get_if<String>(&value);
        return text ? *text : String();
    };
    std::unordered_map<String, std::uint64_t> ids;
    ids.reserve(rows_.size());
    for (const StoredRow& row : rows_)
        ids.emplace(keyText(row), row.Id);
    ids.erase(String()); // no key
    for (StoredRow& row : rows)
        if (const auto known = ids.extract(keyText(row)))
            row.Id = known.mapped();
}

TField& TDataSet::Fields(int index) const
{
    if (index < 0 || index >= FieldCount())
        RaiseListIndex(index, FieldCount());
    return *fields_[static_cast<std::size_t>(index)];
}

TField& TDataSet::FieldByName(StringView name) const
{
    if (TField* const field = FindField(name))
        return *field;
    throw EDatabaseError(DisplayName() + u": column \"" + String(name) + u"\" not found");
}

TField* TDataSet::FindField(StringView name) const
{
    if (const auto known = fieldsByName_.find(name); known != fieldsByName_.end())
        return known->second;
    const auto folded = fieldsByName_.find(FoldCase(name));
    if (folded == fieldsByName_.end())
        return nullptr;
    TField* const field = folded->second;
    fieldsByName_.emplace(name, field);
    return field;
}

void TDataSet::SetState(TDataSetState state)
{
    if (state == state_)
        return;
    state_ = state;
    SendEvent(TDataEvent::deUpdateState);
}

void TDataSet::CheckActive() const
{
    if (!Active())
        throw EDatabaseError(DisplayName() + u" is not open");
}

void TDataSet::DisableControls()
{
    if (disableCount_ == 0) {
        const TLifeWatch watch(this);
        SendEvent(TDataEvent::deDisabledStateChange);
        if (!watch.Alive())
            return;
        stateWhenDisabled_ = state_;
    }
    ++disableCount_;
}

void TDataSet::EnableControls()
{
    if (disableCount_ == 0 || --disableCount_ > 0)
        return;
    const TLifeWatch watch(this);
    SendEvent(TDataEvent::deDisabledStateChange);
    if (watch.Alive() && state_ != stateWhenDisabled_)
        SendEvent(TDataEvent::deUpdateState);
    if (watch.Alive() && Active())
        SendChange();
}

/// The change that stands for whatever has happened to the rows.
void TDataSet::SendChange()
{
    if (disableCount_ > 0)
        return;
    const bool layout = std::exchange(fieldsChanged_, false);
    SendEvent(layout ? TDataEvent::deLayoutChange : TDataEvent::deDataSetChange);
}

void TDataSet::SendEvent(TDataEvent event, std::intptr_t info)
{
    if (disableCount_ > 0 || dataSources_.empty())
        return;
    const TRowsWatch rows(this);
    const std::vector<TDataSource*> sources = dataSources_;
    for (TDataSource* source : sources) {
        if (!rows.Alive() || (ConcernsRows(event) && !rows.Open()))
            return;
        if (std::find(dataSources_.begin(), dataSources_.end(), source) != dataSources_.end())
            source->SendEvent(event, info);
    }
}

/// Each of these tells one thing that has been done, and says whether the rows that it was done to are still there.
bool TDataSet::Tell(const TRowsWatch& rows, TDataSetState state)
{
    SetState(state);
    return rows.Open();
}

bool TDataSet::Tell(const TRowsWatch& rows, TDataEvent event)
{
    SendEvent(event);
    return rows.Open();
}

bool TDataSet::Tell(const TRowsWatch& rows, const TDataSetNotifyEvent& event)
{
    Raise(event, this);
    return rows.Open();
}

namespace {

/// Runs the end of a guard. While another exception is on its way a second one would end the program.
template <typename F>
void EndGuard(int exceptionsBefore, F action)
{
    if (std::uncaught_exceptions() == exceptionsBefore) {
        action();
        return;
    }
    try {
        action();
    } catch (...) { // the first error is the one to report
    }
}

} // namespace

TControlsDisabled::TControlsDisabled(TDataSet& dataset)
    : dataset_(dataset), watch_(&dataset), exceptions_(std::uncaught_exceptions())
{
    dataset_.DisableControls();
}

TControlsDisabled::~TControlsDisabled() noexcept(false)
{
    EndGuard(exceptions_, [this] {
        if (watch_.Alive())
            dataset_.EnableControls();
    });
}

TBookmarkGuard::TBookmarkGuard(TDataSet& dataset)
    : dataset_(dataset), watch_(&dataset), bookmark_(dataset.GetBookmark()), exceptions_(std::uncaught_exceptions())
{
}

TBookmarkGuard::~TBookmarkGuard() noexcept(false)
{
    EndGuard(exceptions_, [this] {
        if (!watch_.Alive() || !dataset_.Active() || !dataset_.BookmarkValid(bookmark_))
            return;
        // What failed may have been the end of an edit on this very row: it isn't tried again.
        const bool failed = std::uncaught_exceptions() != exceptions_;
        if (failed && dataset_.State() == TDataSetState::dsEdit && dataset_.GetBookmark().Row == bookmark_.Row)
            return;
        try {
            dataset_.GotoBookmark(bookmark_);
        } catch (const ERowsGone&) { // the row was there no more once its turn came
        }
    });
}

} // namespace vorn

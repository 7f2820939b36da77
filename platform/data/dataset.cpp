#include "platform/data/dataset.h"

#include "platform/data/data_source.h"
#include "platform/system/lists.h"
#include "platform/system/strings.h"

#include <algorithm>

namespace vorn {

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
    Raise(BeforeOpen, this);
    if (Active())
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
    ++opening_;
    index_ = {};
    SetCurrent(0);
    bof_ = true;
    SetState(TDataSetState::dsBrowse);
    Raise(AfterOpen, this);
    if (Active())
        Raise(AfterScroll, this);
}

void TDataSet::DoClose()
{
    Raise(BeforeClose, this);
    if (!Active())
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
    CheckBrowseMode();
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
    const bool sameFields = SameFields(defs);
    if (!sameFields)
        BuildFields(defs);
    rows_ = std::move(rows);
    index_ = {};
    const int found = FindRow(here);
    SetCurrent(found >= 0 ? found : std::min(here.Hint, RecordCount() - 1));
    SendEvent(sameFields ? TDataEvent::deDataSetChange : TDataEvent::deLayoutChange);
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
        SendEvent(TDataEvent::deDisabledStateChange);
        stateWhenDisabled_ = state_;
    }
    ++disableCount_;
}

void TDataSet::EnableControls()
{
    if (disableCount_ == 0 || --disableCount_ > 0)
        return;
    SendEvent(TDataEvent::deDisabledStateChange);
    if (state_ != stateWhenDisabled_)
        SendEvent(TDataEvent::deUpdateState);
    if (Active())
        SendEvent(TDataEvent::deDataSetChange);
}

void TDataSet::SendEvent(TDataEvent event, std::intptr_t info)
{
    if (disableCount_ > 0 || dataSources_.empty())
        return;
    const std::vector<TDataSource*> sources = dataSources_;
    for (TDataSource* source : sources)
        if (std::find(dataSources_.begin(), dataSources_.end(), source) != dataSources_.end())
            source->SendEvent(event, info);
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
        if (watch_.Alive() && dataset_.Active() && dataset_.BookmarkValid(bookmark_))
            dataset_.GotoBookmark(bookmark_);
    });
}

} // namespace vorn

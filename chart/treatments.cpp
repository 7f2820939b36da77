#include "chart/treatments.h"

#include "platform/system/strings.h"

namespace vorn {

void TTreatments::Clear()
{
    current_ = nullptr;
    drawing_.Next();
    index_.Clear();
    records_.Clear();
}

std::unique_ptr<TVornRec> TTreatments::NewRecord() const
{
    auto record = std::make_unique<TVornRec>(nullptr);
    record->Row = index_.RowCount();
    return record;
}

/// The view is the label's owner; the record's pointer reads as none once the label is gone.
void TTreatments::GiveLabel(TVornRec& record, std::intptr_t key) const
{
    record.FLabel = new TDRLabel(space_.View());
    record.FLabel->SetHolder(&record.FLabel);
    record.FLabel->AssignProperties(settings_.DefaultLabel);
    record.FLabel->SetTag(key);
}

void TTreatments::Add(std::unique_ptr<TVornRec> record)
{
    record->Index = records_.Count();
    records_.Add(record.get());
    index_.Add(*record.release());
}

void TTreatments::ShowChild(std::int64_t parentKey, bool done) const
{
    const TVornRec* parent = index_.OfKey(parentKey);
    if (!parent)
        return;
    parent->FLabel->SetImageIndex(0);
    if (done && parent->FLabel->Border() == TDRBorder::boNone)
        parent->FLabel->SetBorder(TDRBorder::boDotted);
}

void TTreatments::MoveLabels(int dx, int dy) const
{
    for (const TVornRec* record : records_)
        if (TDRLabel* label = record->FLabel)
            label->SetBounds(WrapAdd(label->Left(), dx), WrapAdd(label->Top(), dy), label->Width(), label->Height());
}

void TTreatments::PlaceZoomed() const
{
    for (const TVornRec* record : records_)
        if (TDRLabel* label = record->FLabel)
            label->SetBounds(space_.Zoomed(record->boundRect.Left), space_.Zoomed(record->boundRect.Top),
                label->Width(), label->Height());
}

TRect TTreatments::Around(TRect area) const
{
    for (const TVornRec* record : records_)
        if (record->FLabel)
            area = UnionRect(area, record->FLabel->BoundsRect());
    return area;
}

bool TTreatments::Find(StringView zona, StringView caption) const
{
    return FindLast(zona, caption) != nullptr;
}

const TVornRec* TTreatments::FindLast(StringView zona, StringView caption) const
{
    for (int i = records_.Count() - 1; i >= 0; --i) {
        const TVornRec& record = *records_[i];
        if (record.FLabel && SameText(record.Zona, zona) && record.FLabel->Caption() == caption)
            return &record;
    }
    return nullptr;
}

} // namespace vorn

#include "chart/control_collection.h"

#include "platform/system/exceptions.h"

namespace vorn {

void TControlItem::SetControl(TControl* Value)
{
    if (!Value)
        throw Exception(u"You cannot set Control to nil");
    const TCollection* list = Collection();
    for (int i = 0; list && i < list->Count(); ++i) {
        const auto* item = dynamic_cast<const TControlItem*>(list->Items(i));
        if (item && item != this && item->FControl == Value)
            throw Exception(u"Control already exists in list.");
    }
    FControl = Value;
}

String TControlItem::GetDisplayName() const
{
    if (FControl) {
        if (!FControl->Name().empty())
            return FControl->Name();
        if (const StringView name = FControl->ClassName(); !name.empty())
            return String(name);
    }
    return TCollectionItem::GetDisplayName();
}

void TControlItem::AssignTo(TPersistent& Dest) const
{
    if (auto* item = dynamic_cast<TControlItem*>(&Dest))
        item->SetControl(FControl);
    else
        TCollectionItem::AssignTo(Dest);
}

} // namespace vorn

#include "chart/label_properties.h"

namespace vorn {

void TDRLabelProperties::SetDRLabelProperties(int Index, TXSetProp Value)
{
    if (Index != 0 && Index != 1)
        return;
    TXSetProp& rule = Index == 0 ? FColorSetProp : FFontSetProp;
    if (rule == Value)
        return;
    rule = Value;
    Change();
}

void TDRLabelProperties::SetDRLabelDataSource(int Index, TDataSource* Value)
{
    if (Index != 0 && Index != 1)
        return;
    TDataSource*& source = Index == 0 ? FDSOp : FDSTip;
    if (source == Value)
        return;
    source = Value;
    if (Value && FFollower)
        Value->FreeNotification(FFollower);
    Change();
}

void TDRLabelProperties::Forget(const TComponent* component)
{
    if (FDSOp == component)
        FDSOp = nullptr;
    if (FDSTip == component)
        FDSTip = nullptr;
}

void TDRLabelProperties::Change()
{
    Raise(OnChange, this);
}

void TDRLabelProperties::AssignTo(TPersistent& dest) const
{
    auto* properties = dynamic_cast<TDRLabelProperties*>(&dest);
    if (!properties) {
        TPersistent::AssignTo(dest);
        return;
    }
    properties->FColorSetProp = FColorSetProp;
    properties->FFontSetProp = FFontSetProp;
    properties->FDSOp = FDSOp;
    properties->FDSTip = FDSTip;
    for (TDataSource* source : {FDSOp, FDSTip})
        if (source && properties->FFollower)
            source->FreeNotification(properties->FFollower);
    properties->Change();
}

} // namespace vorn

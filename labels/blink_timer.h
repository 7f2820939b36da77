#pragma once

#include "labels/label_types.h"
#include "platform/controls/timer.h"
#include "platform/graphics/colors.h"

#include <memory>

namespace vorn {

class TDRLabel;

/// Makes the selected labels blink; its ComponentList is the selection of all labels that share it.
///
/// Belongs to the application. The first label that joins starts it, the last that leaves stops it; a label that is
/// freed is dropped without stopping it.
class TDRLabelTimer : public TTimer {
public:
    explicit TDRLabelTimer(TComponent* AOwner);
    /// The labels of the list leave it with their own colours and no event.
    ~TDRLabelTimer() override;

    TDRBlink Blink() const { return FBlink; }
    /// Shows at the next tick.
    void SetBlink(TDRBlink value) { FBlink = value; }
    TColor HiColor() const { return FHiColor; }
    /// The next tick then shows the low colour.
    void SetHiColor(TColor value);
    TColor LoColor() const { return FLoColor; }
    void SetLoColor(TColor value) { FLoColor = value; }
    /// The selected labels in order of joining. Owns none of them.
    TComponentList& ComponentList() const { return *FComponentList; }

    /// Takes every label out; each raises OnSelect with `select` false.
    void Clear();
    /// One tick: the next phase on each selected label.
    void TimeBLink(TObject* sender);

    /// A reference that reads as none once the timer is gone. Labels hold one each: a thousand labels need no
    /// notification of a thousand.
    using Handle = std::shared_ptr<TDRLabelTimer*>;
    const Handle& SelfHandle() const { return FSelf; }

private:
    TColor FHiColor = clRed;
    TColor FLoColor = clNone;
    TColor FFontColor = clRed; // phase of blHiLo: the colour that the last tick showed
    TDRBlink FBlink = TDRBlink::blHiLo;
    std::unique_ptr<TComponentList> FComponentList;
    Handle FSelf;
};

} // namespace vorn

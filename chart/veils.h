#pragma once

#include "platform/system/types.h"

#include <vector>

namespace vorn {

class TDataSet;
class TIELayer;
class TImageEnView;
class TZoneMap;
class TZone;

/// The white layers over missing teeth, above the picture and below the symbols.
class TVeils {
public:
    explicit TVeils(const TZoneMap& zones) : zones_(zones) {}

    /// 0 transparent to 255 opaque.
    int Opacity() const { return opacity_; }
    /// Changes the veils of the view, if there is one, and those to come.
    void SetOpacity(int value, TImageEnView* view);
    /// Veils what "Mancanti" of the patient's current chart row calls missing; leaves the view's layer 0 current. A
    /// column that is missing or can't be read ends it silently, with the veils made so far.
    void Build(TImageEnView& view, const TDataSet& record);
    /// The view's layers are about to go.
    void Forget() { layers_.clear(); }

private:
    void Veil(TImageEnView& view, const TZone& zone);

    const TZoneMap& zones_;
    std::vector<const TIELayer*> layers_; // of this rebuild; they belong to the view
    int opacity_ = 230;
};

} // namespace vorn

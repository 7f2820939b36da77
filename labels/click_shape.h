#pragma once

#include "platform/controls/control.h"

namespace vorn {

/// A small area that draws nothing, shows the hand cursor and takes clicks through Events().OnClick.
class TClickShape : public TGraphicControl {
public:
    explicit TClickShape(TComponent* AOwner);

    const String& zona() const { return fzona; }
    /// The hint follows.
    void SetZona(StringView value);

protected:
    void Paint() override {}

private:
    String fzona;
};

} // namespace vorn

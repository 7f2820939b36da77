#pragma once

#include "platform/controls/shape.h"

namespace vorn {

/// A small area that shows the hand cursor and takes clicks through Events().OnClick. Pen and brush are clear: it draws
/// nothing until an application gives it other ones.
class TClickShape : public TShape {
public:
    explicit TClickShape(TComponent* AOwner);

    const String& zona() const { return fzona; }
    /// The hint follows.
    void SetZona(StringView value);

private:
    String fzona;
};

} // namespace vorn

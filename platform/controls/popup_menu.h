#pragma once

#include "platform/system/component.h"

#include <memory>
#include <vector>

namespace vorn {

class TControl;

/// A menu that opens at a point of the screen.
class TPopupMenu : public TComponent {
public:
    explicit TPopupMenu(TComponent* owner = nullptr);
    ~TPopupMenu() override;

    /// Adds an entry; "-" is a separator. Gives its index.
    int AddItem(StringView caption, TNotifyEvent onClick);
    int ItemCount() const;
    /// Opens at a screen point and returns once it is closed; raises OnPopup before and the chosen entry's event
    /// after. `component` is what the menu opens for, and is none once that is gone.
    void Popup(int x, int y, TComponent* component);
    TComponent* PopupComponent() const { return popupComponent_; }
    /// A control that shows this menu has taken it, or changed its reading direction.
    void ParentBiDiModeChanged(TControl* control);

    TNotifyEvent OnPopup;

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    struct Item {
        String Caption;
        TNotifyEvent OnClick;
    };
    std::vector<Item> items_;
    TComponent* popupComponent_ = nullptr;
    bool rightToLeft_ = false;
};

} // namespace vorn

#pragma once

#include "platform/system/component.h"

#include <functional>
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
    void Show(int x, int y);

    std::vector<Item> items_;
    std::function<void()> close_;                           // while it is open
    std::shared_ptr<char> life_ = std::make_shared<char>(); // calls that may free the menu watch it
    TComponent* popupComponent_ = nullptr;
    bool rightToLeft_ = false;
};

} // namespace vorn

#include "platform/controls/popup_menu.h"

#include "platform/controls/control.h"
#include "platform/controls/event_scope.h"
#include "platform/system/qt_convert.h"

#include <QtCore/QPointer>
#include <QtGui/QAction>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QMenu>

namespace vorn {

TPopupMenu::TPopupMenu(TComponent* owner) : TComponent(owner) {}

TPopupMenu::~TPopupMenu()
{
    Destroying();
    if (close_)
        close_();
}

int TPopupMenu::AddItem(StringView caption, TNotifyEvent onClick)
{
    items_.push_back({String(caption), std::move(onClick)});
    return ItemCount() - 1;
}

int TPopupMenu::ItemCount() const
{
    return static_cast<int>(items_.size());
}

void TPopupMenu::Popup(int x, int y, TComponent* component)
{
    popupComponent_ = component;
    if (component)
        component->FreeNotification(this);
    const std::weak_ptr<char> life = life_;
    Raise(OnPopup, this);
    if (!life.expired() && !items_.empty())
        Show(x, y);
}

void TPopupMenu::Show(int x, int y)
{
    const std::weak_ptr<char> life = life_;
    const auto menu = std::make_unique<QMenu>();
    menu->setLayoutDirection(rightToLeft_ ? Qt::RightToLeft : Qt::LeftToRight);
    for (std::size_t i = 0; i < items_.size(); ++i) {
        if (items_[i].Caption == u"-")
            menu->addSeparator();
        else
            menu->addAction(ToQt(items_[i].Caption))->setData(static_cast<int>(i));
    }
    close_ = [open = menu.get()] { open->close(); };
    const EventPause pause;
    const QAction* chosen = menu->exec(QPoint(x, y));
    if (life.expired())
        return;
    close_ = nullptr;
    const int index = chosen ? chosen->data().toInt() : -1;
    if (index >= 0 && index < ItemCount())
        Raise(items_[static_cast<std::size_t>(index)].OnClick, this);
}

void TPopupMenu::ParentBiDiModeChanged(TControl*)
{
    rightToLeft_ = QGuiApplication::layoutDirection() == Qt::RightToLeft;
}

void TPopupMenu::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == TOperation::opRemove && component == popupComponent_)
        popupComponent_ = nullptr;
}

} // namespace vorn

#include "platform/controls/action.h"

#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

#include <algorithm>

namespace vorn {

TActionLink::~TActionLink()
{
    SetAction(nullptr);
}

void TActionLink::SetAction(TAction* action)
{
    if (action == action_)
        return;
    if (action_)
        std::erase(action_->links_, this);
    action_ = action;
    if (action_)
        action_->links_.push_back(this);
}

TAction::TAction(TComponent* owner) : TComponent(owner) {}

TAction::~TAction()
{
    Destroying();
    SetActionList(nullptr);
    for (TActionLink* link : links_)
        link->action_ = nullptr;
}

void TAction::SetCaption(StringView caption)
{
    caption_ = caption;
    Change();
}

void TAction::SetHint(StringView hint)
{
    hint_ = hint;
    Change();
}

void TAction::SetImageIndex(int index)
{
    imageIndex_ = index;
    Change();
}

void TAction::SetImageName(StringView name)
{
    imageName_ = name;
    Change();
}

void TAction::SetEnabled(bool enabled)
{
    enabled_ = enabled;
    Change();
}

void TAction::SetActionList(TActionList* list)
{
    if (list == list_)
        return;
    if (list_)
        std::erase(list_->actions_, this);
    list_ = list;
    if (list_)
        list_->actions_.push_back(this);
    Change();
}

bool TAction::Execute()
{
    if (!enabled_ || !OnExecute)
        return false;
    Raise(OnExecute, this);
    return true;
}

/// The links are controls that take over what the action shows: none goes meanwhile.
void TAction::Change()
{
    if (InState(csDestroying))
        return;
    for (TActionLink* link : links_)
        Raise(link->OnChange, this);
}

TActionList::TActionList(TComponent* owner) : TComponent(owner) {}

TActionList::~TActionList()
{
    Destroying();
    SetImages(nullptr);
    while (!actions_.empty())
        actions_.back()->SetActionList(nullptr);
}

void TActionList::SetImages(TCustomImageList* images)
{
    if (images == images_)
        return;
    images_ = images;
    if (images_)
        images_->FreeNotification(this);
    for (TAction* action : actions_)
        action->Change();
}

TAction* TActionList::Actions(int index) const
{
    if (index < 0 || index >= ActionCount())
        throw EListError(u"There is no action " + IntToStr(index));
    return actions_[static_cast<std::size_t>(index)];
}

void TActionList::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == TOperation::opRemove && component == images_)
        SetImages(nullptr);
}

} // namespace vorn

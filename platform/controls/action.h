#pragma once

#include "platform/graphics/image_list.h"
#include "platform/system/component.h"

#include <vector>

namespace vorn {

class TAction;
class TActionList;

/// A control's registration with an action: OnChange is called with the action as Sender when what it shows changes.
class TActionLink : public TObject {
public:
    ~TActionLink() override;
    TAction* Action() const { return action_; }
    /// None unties it. Doesn't call OnChange.
    void SetAction(TAction* action);

    TNotifyEvent OnChange;

private:
    friend class TAction;
    TAction* action_ = nullptr;
};

/// Something the user can do, apart from the controls that offer it.
class TAction : public TComponent {
public:
    explicit TAction(TComponent* owner);
    /// The controls tied to it go on without one.
    ~TAction() override;

    const String& Caption() const { return caption_; }
    void SetCaption(StringView caption);
    const String& Hint() const { return hint_; }
    void SetHint(StringView hint);
    /// Place in the list's Images; -1 for none.
    int ImageIndex() const { return imageIndex_; }
    void SetImageIndex(int index);
    const String& ImageName() const { return imageName_; }
    void SetImageName(StringView name);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    TActionList* ActionList() const { return list_; }
    void SetActionList(TActionList* list);

    /// Raises OnExecute with the action as Sender. Gives whether there was a handler; false too for a disabled
    /// action. The action may be gone afterwards.
    bool Execute();
    TNotifyEvent OnExecute;

private:
    friend class TActionLink;
    friend class TActionList;

    void Change();

    std::vector<TActionLink*> links_;
    TActionList* list_ = nullptr;
    String caption_;
    String hint_;
    String imageName_;
    int imageIndex_ = -1;
    bool enabled_ = true;
};

/// Actions that share their images. Doesn't own them.
class TActionList : public TComponent {
public:
    explicit TActionList(TComponent* owner);
    ~TActionList() override;

    TCustomImageList* Images() const { return images_; }
    void SetImages(TCustomImageList* images);
    int ActionCount() const { return static_cast<int>(actions_.size()); }
    /// In the order in which they joined.
    TAction* Actions(int index) const;

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    friend class TAction;

    std::vector<TAction*> actions_;
    TCustomImageList* images_ = nullptr;
};

} // namespace vorn

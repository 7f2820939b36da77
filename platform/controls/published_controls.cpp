#include "platform/controls/published_controls.h"

#include "platform/system/publisher.h"

#include <limits>

namespace vorn {

const TOrdinalType& CursorNames()
{
    static const TOrdinalType names{std::numeric_limits<TCursor>::min(), std::numeric_limits<TCursor>::max(),
        {{crDefault, u"crDefault"}, {crArrow, u"crArrow"}, {crHandPoint, u"crHandPoint"}, {crSizeAll, u"crSizeAll"}}};
    return names;
}

namespace {

TFont& FontOf(TControl& control)
{
    return control.Font();
}

/// The events are made when first asked for, which writing a form doesn't do.
template <auto Member>
auto* MouseEvent(TControl& control, bool make)
{
    return make || control.HasEvents() ? &(control.Events().*Member) : nullptr;
}

using Events = TControl::TMouseEvents;

TComponent* ParentOf(const TComponent& control)
{
    return static_cast<const TControl&>(control).Parent();
}

void SetParentOf(TComponent& control, TComponent& parent)
{
    static_cast<TControl&>(control).SetParent(&static_cast<TWinControl&>(parent));
}

std::vector<TComponent*> ControlsOn(const TComponent& component)
{
    const auto& parent = static_cast<const TWinControl&>(component);
    std::vector<TComponent*> controls;
    for (int i = 0; i < parent.ControlCount(); ++i)
        controls.push_back(parent.Controls(i));
    return controls;
}

} // namespace

template <>
const TPublishedClass& Published<TControl>()
{
    static const TPublishedClass table = TPublisher<TControl>(u"TControl", &Published<TComponent>())
                                             .Places({ParentOf, SetParentOf, nullptr})
                                             .Property<&TControl::Left, &TControl::SetLeft>(u"Left")
                                             .Property<&TControl::Top, &TControl::SetTop>(u"Top")
                                             .Property<&TControl::Width, &TControl::SetWidth>(u"Width")
                                             .Property<&TControl::Height, &TControl::SetHeight>(u"Height")
                                             .Property<&TControl::Cursor, &TControl::SetCursor>(u"Cursor")
                                             .Names(CursorNames())
                                             .Default(crDefault)
                                             .Property<&TControl::Hint, &TControl::SetHint>(u"Hint")
                                             .Default(u"")
                                             .Property<&TControl::Caption, &TControl::SetCaption>(u"Caption")
                                             .Default(u"")
                                             .Property<&TControl::Color, &TControl::SetColor>(u"Color")
                                             .Names(ColorNames())
                                             .Default(clBtnFace)
                                             .Property<&TControl::Enabled, &TControl::SetEnabled>(u"Enabled")
                                             .Default(true)
                                             .Object<FontOf>(u"Font")
                                             .Reference<&TControl::PopupMenu, &TControl::SetPopupMenu>(u"PopupMenu")
                                             .Property<&TControl::Visible, &TControl::SetVisible>(u"Visible")
                                             .Default(true)
                                             .EventAt<MouseEvent<&Events::OnClick>>(u"OnClick")
                                             .EventAt<MouseEvent<&Events::OnContextPopup>>(u"OnContextPopup")
                                             .EventAt<MouseEvent<&Events::OnDblClick>>(u"OnDblClick")
                                             .EventAt<MouseEvent<&Events::OnDragDrop>>(u"OnDragDrop")
                                             .EventAt<MouseEvent<&Events::OnDragOver>>(u"OnDragOver")
                                             .EventAt<MouseEvent<&Events::OnEndDrag>>(u"OnEndDrag")
                                             .EventAt<MouseEvent<&Events::OnMouseDown>>(u"OnMouseDown")
                                             .EventAt<MouseEvent<&Events::OnMouseMove>>(u"OnMouseMove")
                                             .EventAt<MouseEvent<&Events::OnMouseUp>>(u"OnMouseUp")
                                             .Table();
    return table;
}

template <>
const TPublishedClass& Published<TGraphicControl>()
{
    static const TPublishedClass table
        = TPublisher<TGraphicControl>(u"TGraphicControl", &Published<TControl>()).Table();
    return table;
}

template <>
const TPublishedClass& Published<TWinControl>()
{
    static const TPublishedClass table = TPublisher<TWinControl>(u"TWinControl", &Published<TControl>())
                                             .Places({ParentOf, SetParentOf, ControlsOn})
                                             .Property<&TWinControl::TabOrder, &TWinControl::SetTabOrder>(u"TabOrder")
                                             .Default(-1)
                                             .Property<&TWinControl::TabStop, &TWinControl::SetTabStop>(u"TabStop")
                                             .Default(false)
                                             .Table();
    return table;
}

template <>
const TPublishedClass& Published<TPopupMenu>()
{
    static const TPublishedClass table = TPublisher<TPopupMenu>(u"TPopupMenu", &Published<TComponent>())
                                             .Event<&TPopupMenu::OnPopup>(u"OnPopup")
                                             .Table();
    return table;
}

template <>
const TPublishedClass& Published<TTimer>()
{
    static const TPublishedClass table = TPublisher<TTimer>(u"TTimer", &Published<TComponent>())
                                             .Property<&TTimer::Enabled, &TTimer::SetEnabled>(u"Enabled")
                                             .Default(true)
                                             .Property<&TTimer::Interval, &TTimer::SetInterval>(u"Interval")
                                             .Default(1000)
                                             .Event<&TTimer::OnTimer>(u"OnTimer")
                                             .Table();
    return table;
}

void RegisterControlClasses()
{
    RegisterGraphicsClasses();
    RegisterClass(Published<TLabel>());
    RegisterClass(Published<TShape>());
    RegisterClass(Published<TScrollBox>());
    RegisterClass(Published<TFlowPanel>());
    RegisterClass(Published<TForm>());
    RegisterClass(Published<TButton>());
    RegisterClass(Published<TPngSpeedButton>());
    RegisterClass(Published<TAction>());
    RegisterClass(Published<TActionList>());
    RegisterClass(Published<TPopupMenu>());
    RegisterClass(Published<TTimer>());
}

} // namespace vorn

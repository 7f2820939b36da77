#pragma once

#include "platform/controls/action.h"
#include "platform/controls/button.h"
#include "platform/controls/flow_panel.h"
#include "platform/controls/form.h"
#include "platform/controls/label.h"
#include "platform/controls/popup_menu.h"
#include "platform/controls/scroll_box.h"
#include "platform/controls/shape.h"
#include "platform/controls/speed_button.h"
#include "platform/controls/timer.h"
#include "platform/graphics/published_graphics.h"

namespace vorn {

template <>
const TPublishedClass& Published<TControl>();
template <>
const TPublishedClass& Published<TGraphicControl>();
template <>
const TPublishedClass& Published<TWinControl>();
template <>
const TPublishedClass& Published<TLabel>();
template <>
const TPublishedClass& Published<TShapePen>();
template <>
const TPublishedClass& Published<TShapeBrush>();
template <>
const TPublishedClass& Published<TShape>();
template <>
const TPublishedClass& Published<TScrollBox>();
template <>
const TPublishedClass& Published<TFlowPanel>();
/// OnCreate is left out: it is raised before a file could bind it.
template <>
const TPublishedClass& Published<TForm>();
template <>
const TPublishedClass& Published<TButton>();
template <>
const TPublishedClass& Published<TPngSpeedButton>();
template <>
const TPublishedClass& Published<TAction>();
template <>
const TPublishedClass& Published<TActionList>();
/// Without its entries, which an application adds.
template <>
const TPublishedClass& Published<TPopupMenu>();
template <>
const TPublishedClass& Published<TTimer>();

/// How form files call the mouse pointers; others are numbers.
const TOrdinalType& CursorNames();

/// Makes the controls, menus, actions and timers known to form files, and what RegisterGraphicsClasses does.
void RegisterControlClasses();

} // namespace vorn

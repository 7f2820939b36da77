#include "platform/controls/published_controls.h"

#include "platform/system/publisher.h"

namespace vorn {

namespace {

const TOrdinalType alignments = TOrdinalType::Enumeration({u"taLeftJustify", u"taRightJustify", u"taCenter"});
const TOrdinalType bevels = TOrdinalType::Enumeration({u"bvNone", u"bvLowered", u"bvRaised"});
const TOrdinalType borderStyles = TOrdinalType::Enumeration({u"bsNone", u"bsSingle", u"bsSizeable", u"bsDialog"});
const TOrdinalType positions = TOrdinalType::Enumeration({u"poDesigned", u"poScreenCenter"});
const TOrdinalType penStyles = TOrdinalType::Enumeration({u"psSolid", u"psDot", u"psClear"});
const TOrdinalType brushStyles = TOrdinalType::Enumeration({u"bsSolid", u"bsClear"});
const TOrdinalType shapes = TOrdinalType::Enumeration({u"stRectangle", u"stSquare", u"stEllipse", u"stCircle"});

} // namespace

template <>
const TPublishedClass& Published<TLabel>()
{
    static const TPublishedClass table
        = TPublisher<TLabel>(u"TLabel", &Published<TGraphicControl>())
              .Enumeration<&TLabel::Alignment, &TLabel::SetAlignment>(u"Alignment", alignments)
              .Default(TAlignment::taLeftJustify)
              .Property<&TLabel::AutoSize, &TLabel::SetAutoSize>(u"AutoSize")
              .Default(true)
              .Property<&TLabel::ShowAccelChar, &TLabel::SetShowAccelChar>(u"ShowAccelChar")
              .Default(true)
              .Property<&TLabel::Transparent, &TLabel::SetTransparent>(u"Transparent")
              .Default(false)
              .Property<&TLabel::WordWrap, &TLabel::SetWordWrap>(u"WordWrap")
              .Default(false)
              .Table();
    return table;
}

// Styles are always stored: a descendant may start with others.

template <>
const TPublishedClass& Published<TShapePen>()
{
    static const TPublishedClass table = TPublisher<TShapePen>(u"TPen", &Published<TPersistent>())
                                             .Property<&TShapePen::Color, &TShapePen::SetColor>(u"Color")
                                             .Names(ColorNames())
                                             .Default(clBlack)
                                             .Enumeration<&TShapePen::Style, &TShapePen::SetStyle>(u"Style", penStyles)
                                             .Property<&TShapePen::Width, &TShapePen::SetWidth>(u"Width")
                                             .Default(1)
                                             .Table();
    return table;
}

template <>
const TPublishedClass& Published<TShapeBrush>()
{
    static const TPublishedClass table
        = TPublisher<TShapeBrush>(u"TBrush", &Published<TPersistent>())
              .Property<&TShapeBrush::Color, &TShapeBrush::SetColor>(u"Color")
              .Names(ColorNames())
              .Default(clWhite)
              .Enumeration<&TShapeBrush::Style, &TShapeBrush::SetStyle>(u"Style", brushStyles)
              .Table();
    return table;
}

template <>
const TPublishedClass& Published<TShape>()
{
    static const TPublishedClass table = TPublisher<TShape>(u"TShape", &Published<TGraphicControl>())
                                             .Object<&TShape::Brush>(u"Brush")
                                             .Object<&TShape::Pen>(u"Pen")
                                             .Enumeration<&TShape::Shape, &TShape::SetShape>(u"Shape", shapes)
                                             .Default(TShapeType::stRectangle)
                                             .Table();
    return table;
}

template <>
const TPublishedClass& Published<TScrollBox>()
{
    static const TPublishedClass table = TPublisher<TScrollBox>(u"TScrollBox", &Published<TWinControl>()).Table();
    return table;
}

template <>
const TPublishedClass& Published<TFlowPanel>()
{
    static const TPublishedClass table
        = TPublisher<TFlowPanel>(u"TFlowPanel", &Published<TWinControl>())
              .Enumeration<&TFlowPanel::BevelOuter, &TFlowPanel::SetBevelOuter>(u"BevelOuter", bevels)
              .Default(TBevelCut::bvRaised)
              .Table();
    return table;
}

template <>
const TPublishedClass& Published<TForm>()
{
    static const TPublishedClass table
        = TPublisher<TForm>(u"TForm", &Published<TWinControl>())
              .Redefault(u"Visible", false)
              .Reference<&TForm::ActiveControl, &TForm::SetActiveControl>(u"ActiveControl")
              .Property<&TForm::AutoSize, &TForm::SetAutoSize>(u"AutoSize")
              .Default(false)
              .Enumeration<&TForm::BorderStyle, &TForm::SetBorderStyle>(u"BorderStyle", borderStyles)
              .Default(TFormBorderStyle::bsSizeable)
              .Property<&TForm::ParentFont, &TForm::SetParentFont>(u"ParentFont")
              .Default(false)
              .Enumeration<&TForm::Position, &TForm::SetPosition>(u"Position", positions)
              .Default(TPosition::poDesigned)
              .Property<&TForm::ShowHint, &TForm::SetShowHint>(u"ShowHint")
              .Default(false)
              .Event<&TForm::OnCloseQuery>(u"OnCloseQuery")
              .Event<&TForm::OnShow>(u"OnShow")
              .Table();
    return table;
}

template <>
const TPublishedClass& Published<TButton>()
{
    static const TPublishedClass table = TPublisher<TButton>(u"TButton", &Published<TWinControl>())
                                             .Redefault(u"TabStop", true)
                                             .Property<&TButton::Cancel, &TButton::SetCancel>(u"Cancel")
                                             .Default(false)
                                             .Property<&TButton::Default, &TButton::SetDefault>(u"Default")
                                             .Default(false)
                                             .Property<&TButton::ModalResult, &TButton::SetModalResult>(u"ModalResult")
                                             .Default(mrNone)
                                             .Table();
    return table;
}

template <>
const TPublishedClass& Published<TPngSpeedButton>()
{
    static const TPublishedClass table
        = TPublisher<TPngSpeedButton>(u"TPngSpeedButton", &Published<TGraphicControl>())
              .Reference<&TPngSpeedButton::Action, &TPngSpeedButton::SetAction>(u"Action")
              .Property<&TPngSpeedButton::Flat, &TPngSpeedButton::SetFlat>(u"Flat")
              .Default(true)
              .Table();
    return table;
}

template <>
const TPublishedClass& Published<TAction>()
{
    static const TPublishedClass table = TPublisher<TAction>(u"TAction", &Published<TComponent>())
                                             .Reference<&TAction::ActionList, &TAction::SetActionList>(u"ActionList")
                                             .Property<&TAction::Caption, &TAction::SetCaption>(u"Caption")
                                             .Default(u"")
                                             .Property<&TAction::Enabled, &TAction::SetEnabled>(u"Enabled")
                                             .Default(true)
                                             .Property<&TAction::Hint, &TAction::SetHint>(u"Hint")
                                             .Default(u"")
                                             .Property<&TAction::ImageIndex, &TAction::SetImageIndex>(u"ImageIndex")
                                             .Default(-1)
                                             .Property<&TAction::ImageName, &TAction::SetImageName>(u"ImageName")
                                             .Default(u"")
                                             .Event<&TAction::OnExecute>(u"OnExecute")
                                             .Table();
    return table;
}

template <>
const TPublishedClass& Published<TActionList>()
{
    static const TPublishedClass table = TPublisher<TActionList>(u"TActionList", &Published<TComponent>())
                                             .Reference<&TActionList::Images, &TActionList::SetImages>(u"Images")
                                             .Table();
    return table;
}

} // namespace vorn

#include "labels/label_published.h"

#include "platform/system/publisher.h"

namespace vorn {

namespace {

const TOrdinalType borders
    = TOrdinalType::Enumeration({u"boNone", u"boSingle", u"boRaised", u"boLowered", u"boDotted"});
const TOrdinalType xAlignments = TOrdinalType::Enumeration({u"alXNone", u"alXLeft", u"alXRight", u"alXCenter"});
const TOrdinalType yAlignments = TOrdinalType::Enumeration({u"alYNone", u"alYTop", u"alYBottom", u"alYCenter"});
const TOrdinalType blinkModes = TOrdinalType::Enumeration({u"blNone", u"blHiLo", u"blInvert"});

TNotifyEvent* ClickEvent(TClickShape& shape, bool make)
{
    return make || shape.HasEvents() ? &shape.Events().OnClick : nullptr;
}

} // namespace

template <>
const TPublishedClass& Published<TDRLabel>()
{
    using Label = TDRLabel;
    static const TPublishedClass table
        = TPublisher<Label>(u"TDRLabel", &Published<TLabel>())
              .Enumeration<&Label::Border, &Label::SetBorder>(u"Border", borders)
              .Property<&Label::Ct3D, &Label::SetCtl3D>(u"Ct3D")
              .Default(false)
              .Property<&Label::ShadowColor, &Label::SetShadowColor>(u"ShadowColor")
              .Names(ColorNames())
              .Default(clBtnHighlight)
              .Property<&Label::Deep, &Label::SetDeep>(u"Deep")
              .Reference<&Label::Images, &Label::SetImages>(u"Images")
              .Property<&Label::ImageIndex, &Label::SetImageIndex>(u"ImageIndex")
              .Default(-1)
              .Field<&Label::GliphContextPopupOnClick>(u"GliphContextPopupOnClick")
              .Default(true)
              .Reference<&Label::GliphPopupMenu, &Label::SetGliphPopupMenu>(u"GliphPopupMenu")
              .Property<&Label::GliphVisible, &Label::SetGliphVisible>(u"GliphVisible")
              .Default(false)
              .Field<&Label::ShowDrag>(u"ShowDrag")
              .Default(false)
              .Property<&Label::XPicture, &Label::SetXPicture>(u"XPicture")
              .Property<&Label::YPicture, &Label::SetYPicture>(u"YPicture")
              .Enumeration<&Label::PictureXAlignment, &Label::SetPictureXAlignment>(u"PictureXAlignment", xAlignments)
              .Enumeration<&Label::PictureYAlignment, &Label::SetPictureYAlignment>(u"PictureYAlignment", yAlignments)
              .Reference<&Label::BTimer, &Label::SetBlinkTimer>(u"BTimer")
              .Field<&Label::BlinkOnClick>(u"BlinkOnClick")
              .Default(true)
              .Event<&Label::OnGlyphClick>(u"OnGlyphClick")
              .Event<&Label::OnLabelClick>(u"OnLabelClick")
              .Event<&Label::OnSelect>(u"OnSelect")
              .Event<&Label::OnSavePosEvent>(u"OnSavePosEvent")
              .Event<&Label::OnGliphContextPopup>(u"OnGliphContextPopup")
              .Table();
    return table;
}

template <>
const TPublishedClass& Published<TDRLabelTimer>()
{
    using Timer = TDRLabelTimer;
    static const TPublishedClass table = TPublisher<Timer>(u"TDRLabelTimer", &Published<TTimer>())
                                             .Redefault(u"Enabled", false)
                                             .Redefault(u"Interval", 400)
                                             .Enumeration<&Timer::Blink, &Timer::SetBlink>(u"Blink", blinkModes)
                                             .Property<&Timer::HiColor, &Timer::SetHiColor>(u"HiColor")
                                             .Names(ColorNames())
                                             .Property<&Timer::LoColor, &Timer::SetLoColor>(u"LoColor")
                                             .Names(ColorNames())
                                             .Table();
    return table;
}

template <>
const TPublishedClass& Published<TClickShape>()
{
    using Shape = TClickShape;
    static const TPublishedClass table = TPublisher<Shape>(u"TClickShape", &Published<TShape>())
                                             .Redefault(u"Cursor", crHandPoint)
                                             .Property<&Shape::zona, &Shape::SetZona>(u"zona")
                                             .EventAt<ClickEvent>(u"OnClick")
                                             // Behind zona, which sets the hint too.
                                             .Property<&Shape::Hint, &Shape::SetHint>(u"Hint")
                                             .Table();
    return table;
}

void RegisterLabelClasses()
{
    RegisterControlClasses();
    RegisterClass(Published<TDRLabel>());
    RegisterClass(Published<TDRLabelTimer>());
    RegisterClass(Published<TClickShape>());
}

} // namespace vorn

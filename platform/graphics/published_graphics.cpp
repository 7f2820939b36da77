#include "platform/graphics/published_graphics.h"

#include "platform/system/publisher.h"

namespace vorn {

const TOrdinalType& ColorNames()
{
    static const TOrdinalType names{0, 0xFFFFFFFF,
        {
            {clBlack, u"clBlack"},
            {0x000080, u"clMaroon"},
            {0x008000, u"clGreen"},
            {0x008080, u"clOlive"},
            {0x800000, u"clNavy"},
            {0x800080, u"clPurple"},
            {0x808000, u"clTeal"},
            {0x808080, u"clGray"},
            {0xC0C0C0, u"clSilver"},
            {clRed, u"clRed"},
            {0x00FF00, u"clLime"},
            {0x00FFFF, u"clYellow"},
            {clBlue, u"clBlue"},
            {0xFF00FF, u"clFuchsia"},
            {0xFFFF00, u"clAqua"},
            {clWhite, u"clWhite"},
            {0x80000000, u"clScrollBar"},
            {0x80000001, u"clBackground"},
            {0x80000002, u"clActiveCaption"},
            {0x80000003, u"clInactiveCaption"},
            {0x80000004, u"clMenu"},
            {clWindow, u"clWindow"},
            {clWindowFrame, u"clWindowFrame"},
            {0x80000007, u"clMenuText"},
            {clWindowText, u"clWindowText"},
            {0x80000009, u"clCaptionText"},
            {0x8000000A, u"clActiveBorder"},
            {0x8000000B, u"clInactiveBorder"},
            {0x8000000C, u"clAppWorkSpace"},
            {0x8000000D, u"clHighlight"},
            {0x8000000E, u"clHighlightText"},
            {clBtnFace, u"clBtnFace"},
            {clBtnShadow, u"clBtnShadow"},
            {clGrayText, u"clGrayText"},
            {0x80000012, u"clBtnText"},
            {0x80000013, u"clInactiveCaptionText"},
            {clBtnHighlight, u"clBtnHighlight"},
            {0x80000015, u"cl3DDkShadow"},
            {0x80000016, u"cl3DLight"},
            {0x80000017, u"clInfoText"},
            {0x80000018, u"clInfoBk"},
            {clNone, u"clNone"},
        },
        true};
    return names;
}

namespace {

const TOrdinalType fontStyles = TOrdinalType::Set({u"fsBold", u"fsItalic", u"fsUnderline", u"fsStrikeOut"});

void SetListWidth(TCustomImageList& list, int width)
{
    list.SetSize(width, list.Height());
}

void SetListHeight(TCustomImageList& list, int height)
{
    list.SetSize(list.Width(), height);
}

} // namespace

template <>
const TPublishedClass& Published<TFont>()
{
    static const TPublishedClass table = TPublisher<TFont>(u"TFont", &Published<TPersistent>())
                                             .Property<&TFont::Charset, &TFont::SetCharset>(u"Charset")
                                             .Property<&TFont::Color, &TFont::SetColor>(u"Color")
                                             .Names(ColorNames())
                                             .Property<&TFont::Height, &TFont::SetHeight>(u"Height")
                                             .Property<&TFont::Name, &TFont::SetName>(u"Name")
                                             .Property<&TFont::Size, &TFont::SetSize>(u"Size")
                                             .NeverStored() // Height says the same, exactly
                                             .Set<&TFont::Style, &TFont::SetStyle>(u"Style", fontStyles)
                                             .Table();
    return table;
}

template <>
const TPublishedClass& Published<TCustomImageList>()
{
    static const TPublishedClass table = TPublisher<TCustomImageList>(u"TImageList", &Published<TComponent>())
                                             .Property<&TCustomImageList::Height, SetListHeight>(u"Height")
                                             .Default(16)
                                             .Property<&TCustomImageList::Width, SetListWidth>(u"Width")
                                             .Default(16)
                                             .Table();
    return table;
}

template <>
const TPublishedClass& Published<TPngImageList>()
{
    static const TPublishedClass table
        = TPublisher<TPngImageList>(u"TPngImageList", &Published<TCustomImageList>())
              .Property<&TPngImageList::Background, &TPngImageList::SetBackground>(u"Background")
              .Names(ColorNames())
              .Default(clWindow)
              .Table();
    return table;
}

void RegisterGraphicsClasses()
{
    RegisterClass(Published<TCustomImageList>());
    RegisterClass(Published<TPngImageList>());
}

} // namespace vorn

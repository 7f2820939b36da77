#include "platform/imaging/published_imaging.h"

#include "platform/system/publisher.h"

namespace vorn {

namespace {

// Of the elements that have no name here a file gives the number.
const TOrdinalType viewInteract{0, 0xFFFFFFFF, {{miMoveLayers, u"miMoveLayers"}}};
const TOrdinalType thumbnailInteract{0, 0xFFFFFFFF, {{mmiSelect, u"mmiSelect"}}};
const TOrdinalType keyInteract{0, 0xFFFFFFFF, {{mkiMoveSelected, u"mkiMoveSelected"}}};
const TOrdinalType storeTypes = TOrdinalType::Enumeration({u"ietNormal", u"ietThumb"});

} // namespace

template <>
const TPublishedClass& Published<TImage>()
{
    static const TPublishedClass table = TPublisher<TImage>(u"TImage", &Published<TGraphicControl>())
                                             .Property<&TImage::AutoSize, &TImage::SetAutoSize>(u"AutoSize")
                                             .Default(false)
                                             .Property<&TImage::Center, &TImage::SetCenter>(u"Center")
                                             .Default(false)
                                             .Property<&TImage::Stretch, &TImage::SetStretch>(u"Stretch")
                                             .Default(false)
                                             .Table();
    return table;
}

template <>
const TPublishedClass& Published<TImageEnView>()
{
    using View = TImageEnView;
    static const TPublishedClass table
        = TPublisher<View>(u"TImageEnView", &Published<TWinControl>())
              .Property<&View::Background, &View::SetBackground>(u"Background")
              .Names(ColorNames())
              .Default(clBtnFace)
              .Set<&View::MouseInteract, &View::SetMouseInteract>(u"MouseInteract", viewInteract)
              .Default(0)
              .Event<&View::OnLayerNotify>(u"OnLayerNotify")
              .Event<&View::OnViewChange>(u"OnViewChange")
              .Table();
    return table;
}

template <>
const TPublishedClass& Published<TImageEnMView>()
{
    using View = TImageEnMView;
    static const TPublishedClass table
        = TPublisher<View>(u"TImageEnMView", &Published<TWinControl>())
              .Redefault(u"TabStop", true)
              .Property<&View::Background, &View::SetBackground>(u"Background")
              .Names(ColorNames())
              .Default(clBtnFace)
              .Property<&View::GridWidth, &View::SetGridWidth>(u"GridWidth")
              .Default(-1)
              .Property<&View::HorizBorder, &View::SetHorizBorder>(u"HorizBorder")
              .Default(4)
              .Set<&View::KeyInteract, &View::SetKeyInteract>(u"KeyInteract", keyInteract)
              .Default(mkiMoveSelected)
              .Set<&View::MouseInteract, &View::SetMouseInteract>(u"MouseInteract", thumbnailInteract)
              .Default(mmiSelect)
              .Property<&View::SelectedImageAlwaysVisible, &View::SetSelectedImageAlwaysVisible>(
                  u"SelectedImageAlwaysVisible")
              .Default(false)
              .Property<&View::ShowText, &View::SetShowText>(u"ShowText")
              .Default(false)
              .Enumeration<&View::StoreType, &View::SetStoreType>(u"StoreType", storeTypes)
              .Default(TIEStoreType::ietNormal)
              .Property<&View::ThumbHeight, &View::SetThumbHeight>(u"ThumbHeight")
              .Default(100)
              .Property<&View::ThumbnailsBorderColor, &View::SetThumbnailsBorderColor>(u"ThumbnailsBorderColor")
              .Names(ColorNames())
              .Default(clNone)
              .Property<&View::ThumbWidth, &View::SetThumbWidth>(u"ThumbWidth")
              .Default(100)
              .Property<&View::VertBorder, &View::SetVertBorder>(u"VertBorder")
              .Default(4)
              .Event<&View::OnImageSelect>(u"OnImageSelect")
              .Table();
    return table;
}

void RegisterImagingClasses()
{
    RegisterControlClasses();
    RegisterClass(Published<TImage>());
    RegisterClass(Published<TImageEnView>());
    RegisterClass(Published<TImageEnMView>());
}

} // namespace vorn

#include "chart/published_properties.h"

#include "platform/imaging/published_imaging.h"
#include "platform/system/publisher.h"

namespace vorn {

namespace {

const TOrdinalType diagnosisLines
    = TOrdinalType::Enumeration({u"diagNone", u"diagSigla", u"diagSiglaDescr", u"diagDescr"});
const TOrdinalType rules = TOrdinalType::Enumeration({u"etUnassigned", u"etOp", u"etTip"});

} // namespace

template <>
const TPublishedClass& Published<TVornIEDBTerList>()
{
    using Chart = TVornIEDBTerList;
    static const TPublishedClass table
        = TPublisher<Chart>(u"TVornIEDBTerList", &Published<TComponent>())
              .Reference<&Chart::DataSourceSfondi, &Chart::SetDataSourceSfondi>(u"DataSourceSfondi")
              .Reference<&Chart::DataSourceSimboli, &Chart::SetDataSourceSimb>(u"DataSourceSimboli")
              .Reference<&Chart::DataSourceDiagnosi, &Chart::SetDataSourceDiagnosi>(u"DataSourceDiagnosi")
              .Reference<&Chart::DataSource, &Chart::SetDataSource>(u"DataSource")
              .Reference<&Chart::DataSourceCartella, &Chart::SetDataSourceCartella>(u"DataSourceCartella")
              .Reference<&Chart::DataSourceAspetto, &Chart::SetDataSourceAspetto>(u"DataSourceAspetto")
              .Property<&Chart::IDEsclusa, &Chart::SetIDEsclusa>(u"IDEsclusa")
              .Property<&Chart::IDFatto, &Chart::SetIDFatto>(u"IDFatto")
              .Property<&Chart::IDNONAccettata, &Chart::SetIDNONAccettata>(u"IDNONAccettata")
              .Object<&Chart::DiagnosiFont>(u"DiagnosiFont")
              .Enumeration<&Chart::DiagnosiShow, &Chart::SetDiagnosiShow>(u"DiagnosiShow", diagnosisLines)
              .Default(TDiagnosiShow::diagSigla)
              .Property<&Chart::DiagnosiPoint, &Chart::SetDiagnosiPoint>(u"DiagnosiPoint")
              .Reference<&Chart::Container, &Chart::SetContainer>(u"Container")
              .Property<&Chart::EnabledImg, &Chart::SetEnabledImg>(u"EnabledImg")
              .Default(true)
              .Property<&Chart::EnabledDib, &Chart::SetEnabledDib>(u"EnabledDib")
              .Default(true)
              .Reference<&Chart::MViewDibDS, &Chart::SetMViewDibDS>(u"MViewDibDS")
              .Property<&Chart::Enabled, &Chart::SetEnabled>(u"Enabled")
              .Default(true)
              .Reference<&Chart::DefaultLabel, &Chart::SetDefaultLabel>(u"DefaultLabel")
              .Property<&Chart::ParentField, &Chart::SetParentField>(u"ParentField")
              .Property<&Chart::RootValue, &Chart::SetRootValue>(u"RootValue")
              .Property<&Chart::FieldFatto, &Chart::SetFieldFatto>(u"FieldFatto")
              .Property<&Chart::KeyField, &Chart::SetKeyField>(u"KeyField")
              .Property<&Chart::OffsetX, &Chart::SetOffsetX>(u"OffsetX")
              .Property<&Chart::OffsetY, &Chart::SetOffsetY>(u"OffsetY")
              .Event<&Chart::OnZoneClick>(u"OnZoneClick")
              .Event<&Chart::OnMultipleSelect>(u"OnMultipleSelect")
              .Event<&Chart::OnAddTerFromSimb>(u"OnAddTerFromSimb")
              .Event<&Chart::OnSingleSelect>(u"OnSingleSelect")
              .Object<&Chart::LabelProp>(u"LabelProp")
              .Strings<&Chart::NomiZoneList>(u"NomiZoneList")
              .Property<&Chart::Opacity, &Chart::SetOpacity>(u"Opacity")
              .Default(230)
              .Property<&Chart::ShowPictureContainer, &Chart::SetShowPictureContainer>(u"ShowPictureContainer")
              .Default(false)
              .Property<&Chart::ShowDragPrestazioni, &Chart::SetShowDragPrestazioni>(u"ShowDragPrestazioni")
              .Default(false)
              .Property<&Chart::RiposizionaPrestazioni, &Chart::SetRiposizionaPrestazioni>(u"RiposizionaPrestazioni")
              .Default(false)
              .Property<&Chart::PictureContainer, &Chart::SetPictureContainer>(u"PictureContainer")
              .Table();
    return table;
}

template <>
const TPublishedClass& Published<TDRLabelProperties>()
{
    using Rules = TDRLabelProperties;
    static const TPublishedClass table
        = TPublisher<Rules>(u"TDRLabelProperties", &Published<TPersistent>())
              .Property<&Rules::FieldColore, &Rules::SetFieldColore>(u"FieldColore")
              .Property<&Rules::FieldFont, &Rules::SetFieldFont>(u"FieldFont")
              .Property<&Rules::FieldKey, &Rules::SetFieldKey>(u"FieldKey")
              .Enumeration<&Rules::SetColorProp, &Rules::SetSetColorProp>(u"SetColorProp", rules)
              .Enumeration<&Rules::SetFontProp, &Rules::SetSetFontProp>(u"SetFontProp", rules)
              .Reference<&Rules::DSOperatori, &Rules::SetDSOperatori>(u"DSOperatori")
              .Reference<&Rules::DSTipologie, &Rules::SetDSTipologie>(u"DSTipologie")
              .Table();
    return table;
}

template <>
const TPublishedClass& Published<TControlItem>()
{
    static const TPublishedClass table = TPublisher<TControlItem>(u"TControlItem", &Published<TPersistent>())
                                             .Reference<&TControlItem::Control, &TControlItem::SetControl>(u"Control")
                                             .Table();
    return table;
}

void RegisterChartClasses()
{
    RegisterDataClasses();
    RegisterImagingClasses();
    RegisterLabelClasses();
    RegisterClass(Published<TVornIEDBTerList>());
}

} // namespace vorn

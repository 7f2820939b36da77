#include "chart/published_properties.h"
#include "platform/forms/form_file.h"
#include "platform/imaging/published_imaging.h"
#include "platform/system/strings.h"
#include "tests/support/strings_print.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace vorn::test {
namespace {

/// A table's own rows as "Name", with "=value" for what isn't stored and "@Class" for what a reference takes.
std::vector<std::string> OwnRows(const TPublishedClass& type)
{
    std::vector<std::string> rows;
    for (const TPublishedProperty& property : type.Properties()) {
        const TPublishedProperty* inherited = type.Base()->Find(property.Name);
        if (inherited && inherited->Get == property.Get)
            continue;
        std::string row = Utf8(property.Name);
        if (const auto* number = std::get_if<std::int64_t>(&property.Default))
            row += '=' + std::to_string(*number);
        if (property.Kind == TPropertyKind::pkComponent)
            row += '@' + Utf8(property.Class().Name());
        rows.push_back(row);
    }
    return rows;
}

using Rows = std::vector<std::string>;

TEST(PublishedTables, TheChartListsItsPropertiesInDeclaredOrder)
{
    EXPECT_EQ(OwnRows(Published<TVornIEDBTerList>()),
        (Rows{"DataSourceSfondi@TDataSource", "DataSourceSimboli@TDataSource", "DataSourceDiagnosi@TDataSource",
            "DataSource@TDataSource", "DataSourceCartella@TDataSource", "DataSourceAspetto@TDataSource", "IDEsclusa",
            "IDFatto", "IDNONAccettata", "DiagnosiFont", "DiagnosiShow=1", "DiagnosiPoint", "Container@TImageEnView",
            "EnabledImg=1", "EnabledDib=1", "MViewDibDS@TDataSource", "Enabled=1", "DefaultLabel@TDRLabel",
            "ParentField", "RootValue", "FieldFatto", "KeyField", "OffsetX", "OffsetY", "OnZoneClick",
            "OnMultipleSelect", "OnAddTerFromSimb", "OnSingleSelect", "LabelProp", "NomiZoneList", "Opacity=230",
            "ShowPictureContainer=0", "ShowDragPrestazioni=0", "RiposizionaPrestazioni=0", "PictureContainer"}));
    EXPECT_EQ(OwnRows(Published<TDRLabelProperties>()),
        (Rows{"FieldColore", "FieldFont", "FieldKey", "SetColorProp", "SetFontProp", "DSOperatori@TDataSource",
            "DSTipologie@TDataSource"}));
    EXPECT_EQ(OwnRows(Published<TControlItem>()), (Rows{"Control@TControl"}));
}

TEST(PublishedTables, TheLabelsListTheirsToo)
{
    EXPECT_EQ(OwnRows(Published<TDRLabel>()),
        (Rows{"Border", "Ct3D=0", "ShadowColor=2147483668", "Deep", "Images@TImageList", "ImageIndex=-1",
            "GliphContextPopupOnClick=1", "GliphPopupMenu@TPopupMenu", "GliphVisible=0", "ShowDrag=0", "XPicture",
            "YPicture", "PictureXAlignment", "PictureYAlignment", "BTimer@TDRLabelTimer", "BlinkOnClick=1",
            "OnGlyphClick", "OnLabelClick", "OnSelect", "OnSavePosEvent", "OnGliphContextPopup"}));
    EXPECT_EQ(OwnRows(Published<TDRLabelTimer>()), (Rows{"Blink", "HiColor", "LoColor"}));
    EXPECT_EQ(OwnRows(Published<TShape>()), (Rows{"Brush", "Pen", "Shape=0"}));
    EXPECT_EQ(OwnRows(Published<TClickShape>()), (Rows{"zona", "OnClick", "Hint"}));
    EXPECT_EQ(Published<TDRLabel>().Properties().front().Name, u"Tag") << "what is inherited comes first";
}

const StringView registered[] = {u"TImageList", u"TPngImageList", u"TLabel", u"TShape", u"TScrollBox", u"TFlowPanel",
    u"TForm", u"TButton", u"TPngSpeedButton", u"TAction", u"TActionList", u"TPopupMenu", u"TTimer", u"TImage",
    u"TImageEnView", u"TImageEnMView", u"TDataSource", u"TMemoryDataSet", u"TSqlConnection", u"TSqlDataSet",
    u"TDRLabel", u"TDRLabelTimer", u"TClickShape", u"TVornIEDBTerList"};

class EveryClass : public testing::TestWithParam<StringView> {
protected:
    EveryClass()
    {
        RegisterChartClasses();
        type = FindClass(GetParam());
        object.reset(type->Create(nullptr));
        object->SetName(u"subject");
    }

    const TPublishedClass* type;
    std::unique_ptr<TComponent> object;
};

TEST_P(EveryClass, HasTheDefaultsThatItsTableSays)
{
    EXPECT_EQ(ExactClass(*object), type);
    for (const TPublishedProperty& property : type->Properties()) {
        if (property.Stored == TStored::stUnlessDefault) {
            EXPECT_EQ(property.Get(*object), property.Default) << Utf8(property.Name);
        }
    }
}

/// A value that the property doesn't have yet.
TPropertyValue OtherValue(const TPublishedProperty& property, const TPersistent& object)
{
    const TPropertyValue now = property.Get(object);
    switch (property.Kind) {
    case TPropertyKind::pkInteger:
        return std::get<std::int64_t>(now) + 1;
    case TPropertyKind::pkEnumeration:
        return (std::get<std::int64_t>(now) + 1) % (property.Ordinals->Max + 1);
    case TPropertyKind::pkSet:
        return std::get<std::int64_t>(now) ^ property.Ordinals->Names.back().Value ^ 16;
    case TPropertyKind::pkString:
        return String(u"it's \u00E8");
    case TPropertyKind::pkPoint:
        return TPoint{3, -5};
    default:
        return {};
    }
}

/// Gives every plain property another value, those of its parts too.
void ChangeAll(TPersistent& object, const TPublishedClass& type)
{
    for (const TPublishedProperty& property : type.Properties()) {
        if (property.Kind == TPropertyKind::pkObject)
            ChangeAll(*std::get<TPersistent*>(property.Get(object)), property.Class());
        else if (const TPropertyValue other = OtherValue(property, object);
                 !std::holds_alternative<std::monostate>(other) && property.Stored != TStored::stNever)
            property.Set(object, other);
    }
}

TEST_P(EveryClass, ComesBackWithEveryPropertyChanged)
{
    const String plain = WriteForm(*object);
    object->SetLoading(true); // as a reader does: nothing is acted on yet
    ChangeAll(*object, *type);
    object->SetLoading(false);
    const String changed = WriteForm(*object);
    EXPECT_NE(changed, plain);
    EXPECT_EQ(Utf8(WriteForm(*MakeForm(changed))), Utf8(changed));
    EXPECT_EQ(Utf8(WriteForm(*MakeForm(plain))), Utf8(plain));
}

INSTANTIATE_TEST_SUITE_P(
    PublishedTables, EveryClass, testing::ValuesIn(registered), [](const auto& test) { return Utf8(test.param); });

} // namespace
} // namespace vorn::test

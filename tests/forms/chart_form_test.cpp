#include "chart/published_properties.h"
#include "platform/forms/form_file.h"
#include "platform/imaging/published_imaging.h"
#include "platform/system/publisher.h"
#include "platform/system/strings.h"
#include "tests/support/strings_print.h"

#include <gtest/gtest.h>

namespace vorn::test {

/// An application's own component with a list of controls.
class Toolbox : public TComponent {
public:
    explicit Toolbox(TComponent* owner) : TComponent(owner) {}
    TControlList controls{this};
};

} // namespace vorn::test

namespace vorn {

template <>
const TPublishedClass& Published<test::Toolbox>()
{
    static const TPublishedClass table = TPublisher<test::Toolbox>(u"Toolbox", &Published<TComponent>())
                                             .Collection<&test::Toolbox::controls, TControlItem>(u"Controls")
                                             .Table();
    return table;
}

namespace test {
namespace {

const std::string ChartForm = R"(object window: TForm
  Left = 0
  Top = 0
  Width = 640
  Height = 480
  Caption = 'Cartella'
  Font.Charset = 1
  Font.Color = clWindowText
  Font.Height = -11
  Font.Name = 'Tahoma'
  Font.Style = []
  OnShow = WindowShow
  object box: TScrollBox
    Left = 1
    Top = 2
    Width = 600
    Height = 400
    Font.Charset = 1
    Font.Color = clWindowText
    Font.Height = -11
    Font.Name = 'Tahoma'
    Font.Style = []
    object view: TImageEnView
      Left = 0
      Top = 0
      Width = 500
      Height = 300
      Font.Charset = 1
      Font.Color = clWindowText
      Font.Height = -11
      Font.Name = 'Tahoma'
      Font.Style = []
      OnMouseUp = ViewMouseUp
    end
  end
  object look: TDRLabel
    Left = 5
    Top = 6
    Width = 70
    Height = 20
    Caption = 'modello'
    Font.Charset = 1
    Font.Color = $00804020
    Font.Height = -13
    Font.Name = 'Arial'
    Font.Style = [fsBold, fsItalic]
    PopupMenu = menu
    Visible = False
    AutoSize = False
    Transparent = True
    Border = boDotted
    Deep = 2
    Images = glyphs
    GliphVisible = True
    XPicture = 0
    YPicture = 0
    PictureXAlignment = alXLeft
    PictureYAlignment = alYCenter
    BTimer = blink
    OnSelect = LookSelect
  end
  object blink: TDRLabelTimer
    Interval = 250
    Blink = blInvert
    HiColor = clRed
    LoColor = clNone
  end
  object glyphs: TImageList
    Height = 9
    Width = 9
  end
  object menu: TPopupMenu
  end
  object rows: TMemoryDataSet
  end
  object rowsSource: TDataSource
    DataSet = rows
  end
  object tools: Toolbox
    Controls = <
      item
        Control = view
      end
      item
        Control = look
      end
    >
  end
  object chart: TVornIEDBTerList
    DataSource = rowsSource
    IDEsclusa = 'ESC'
    IDFatto = ''
    IDNONAccettata = ''
    DiagnosiFont.Charset = 1
    DiagnosiFont.Color = clRed
    DiagnosiFont.Height = -16
    DiagnosiFont.Name = 'Arial'
    DiagnosiFont.Style = []
    DiagnosiShow = diagDescr
    DiagnosiPoint = (3, -5)
    Container = view
    DefaultLabel = look
    ParentField = 'PADRE'
    RootValue = '0'
    FieldFatto = 'Fatto'
    KeyField = 'ID'
    OffsetX = 0
    OffsetY = 0
    OnZoneClick = ZoneClick
    OnSingleSelect = Select
    LabelProp.FieldColore = 'Colore'
    LabelProp.FieldFont = 'Font'
    LabelProp.FieldKey = 'Sigla'
    LabelProp.SetColorProp = etTip
    LabelProp.SetFontProp = etUnassigned
    LabelProp.DSOperatori = rowsSource
    NomiZoneList = (
      '11'
      '12'
    )
    Opacity = 100
    PictureContainer = ''
  end
end
)";

class ChartFormTest : public testing::Test {
protected:
    ChartFormTest()
    {
        RegisterChartClasses();
        RegisterClass(Published<Toolbox>());
        const auto count = [this](TObject*) { ++raised; };
        for (StringView name : {u"WindowShow", u"ZoneClick", u"Select"})
            offers.Offer<TNotifyEvent>(name, count);
        offers.Offer<TMouseEvent>(u"ViewMouseUp", [](TObject*, TMouseButton, TShiftState, int, int) {});
        offers.Offer<TDRLabelSelectEvent>(u"LookSelect", [](TObject*, bool, TShiftState) {});
    }

    TFormOffers offers;
    int raised = 0;
};

TEST_F(ChartFormTest, IsWrittenAsItWasRead)
{
    // As a designer reads it; in a running form the chart has put its own handlers into the view's events.
    TForm designed(nullptr);
    designed.SetDesigning(true);
    ReadForm(FromUtf8(ChartForm), designed, offers);
    EXPECT_EQ(Utf8(WriteForm(designed)), ChartForm);

    const auto form = MakeForm(FromUtf8(ChartForm), offers);
    const String once = WriteForm(*form);
    EXPECT_EQ(Utf8(WriteForm(*MakeForm(once, offers))), Utf8(once));
}

TEST_F(ChartFormTest, IsWhatTheFileSays)
{
    const auto form = MakeForm(FromUtf8(ChartForm), offers);
    auto& chart = dynamic_cast<TVornIEDBTerList&>(*form->FindComponent(u"chart"));
    auto& view = dynamic_cast<TImageEnView&>(*form->FindComponent(u"view"));
    auto& look = dynamic_cast<TDRLabel&>(*form->FindComponent(u"look"));
    EXPECT_EQ(chart.Container(), &view);
    EXPECT_EQ(chart.DefaultLabel(), &look);
    EXPECT_EQ(chart.DataSource(), form->FindComponent(u"rowsSource"));
    EXPECT_EQ(chart.LabelProp().DSOperatori(), chart.DataSource());
    EXPECT_EQ(chart.DiagnosiPoint(), (TPoint{3, -5}));
    EXPECT_EQ(chart.NomiZoneList().Text(), u"11\r\n12\r\n");
    EXPECT_FALSE(chart.InState(csLoading));
    Raise(chart.OnZoneClick, &chart);
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(view.Parent(), form->FindComponent(u"box"));
    EXPECT_EQ(look.BoundsRect(), vorn::Bounds(5, 6, 70, 20)) << "the text didn't change the size";
    EXPECT_EQ(look.Font().Style(), fsBold | fsItalic);
    EXPECT_EQ(look.BTimer(), form->FindComponent(u"blink"));
    EXPECT_EQ(look.PopupMenu(), form->FindComponent(u"menu"));
    const auto& tools = dynamic_cast<Toolbox&>(*form->FindComponent(u"tools"));
    EXPECT_EQ(tools.controls.Items(1)->DisplayName(), u"look");
}

/// The chart takes the view's events in whatever order the file tells of the two.
TEST_F(ChartFormTest, ChartAndViewMayStandInAnyOrder)
{
    const std::string view = "object view: TImageEnView\nMouseInteract = []\nOnLayerNotify = Layer\n"
                             "OnDragOver = Over\nOnMouseUp = Up\n";
    const std::string chart = "object chart: TVornIEDBTerList\nContainer = view\nend\n";
    for (const std::string& text :
        {"object f: TForm\n" + view + "end\n" + chart + "end\n", "object f: TForm\n" + chart + view + "end\nend\n",
            "object f: TForm\nobject box: TScrollBox\n" + view + "end\nend\n" + chart + "end\n",
            view + chart + "end\n"}) {
        SCOPED_TRACE(text);
        raised = 0;
        TFormOffers handlers;
        handlers.Offer<TMouseEvent>(u"Up", [this](TObject*, TMouseButton, TShiftState, int, int) { ++raised; });
        handlers.Offer<TIELayerNotify>(u"Layer", [this](TObject*, int, TIELayerEvent) { ++raised; });
        handlers.Offer<TDragOverEvent>(
            u"Over", [](TObject*, TObject*, int, int, TDragState, bool& accept) { accept = true; });
        const auto form = MakeForm(FromUtf8(text), handlers);
        const auto* terms = dynamic_cast<TVornIEDBTerList*>(form->FindComponent(u"chart"));
        TImageEnView& hooked = *terms->Container();
        EXPECT_EQ(hooked.MouseInteract(), miMoveLayers);
        bool accepted = true;
        hooked.Events().OnDragOver(&hooked, nullptr, 1, 1, TDragState::dsDragMove, accepted);
        EXPECT_FALSE(accepted) << "the chart's own handler answers";
        hooked.Events().OnMouseUp(&hooked, TMouseButton::mbLeft, 0, 1, 1);
        hooked.OnLayerNotify(&hooked, 0, TIELayerEvent::ielResized);
        EXPECT_EQ(raised, 2) << "the form's handlers come behind the chart's";
    }
}

TEST_F(ChartFormTest, BrokenFilesLeaveNothingAndRaiseNoEvent)
{
    const std::string broken[][2] = {
        {"      item\n        Control = view\n", "      item\n        Control = look\n"},
        {"Container = view", "Container = box"},
        {"OnSelect = LookSelect", "OnSelect = ZoneClick"},
        {"    Opacity = 100\n", "    Opacity = 100\n    Opacity = 100\n"},
    };
    const std::string messages[] = {
        "Line 85: Control of an item of Controls: Control already exists in list.",
        "Line 101: Container takes a TImageEnView; box is a TScrollBox",
        "Line 60: OnSelect: the handler ZoneClick is for events of another type",
        "Line 122: Opacity is set twice",
    };
    for (std::size_t i = 0; i < std::size(broken); ++i) {
        std::string text = ChartForm;
        text.replace(text.find(broken[i][0]), broken[i][0].size(), broken[i][1]);
        TComponent root(nullptr);
        TForm form(&root);
        EXPECT_EQ(MessageOf<EFormError>([&] { ReadForm(FromUtf8(text), form, offers); }), messages[i]);
        EXPECT_EQ(form.ComponentCount(), 0);
        EXPECT_EQ(form.ControlCount(), 0);
    }
    EXPECT_EQ(raised, 0);
}

TEST_F(ChartFormTest, AnAutoSizedLabelHasTheFilesSizeOrElseItsTexts)
{
    const auto form = MakeForm(u"object TForm\n"
                               u"object a: TLabel\nCaption = 'some text'\nend\n"
                               u"object b: TLabel\nWidth = 3\nHeight = 4\nCaption = 'some text'\nend\n"
                               u"end\n");
    const auto size = [&](StringView name) {
        const auto& label = dynamic_cast<TLabel&>(*form->FindComponent(name));
        return TPoint{label.Width(), label.Height()};
    };
    TLabel plain(nullptr);
    plain.SetCaption(u"some text");
    EXPECT_EQ(size(u"a"), (TPoint{plain.Width(), plain.Height()}));
    EXPECT_EQ(size(u"b"), (TPoint{3, 4}));
}

} // namespace
} // namespace test
} // namespace vorn

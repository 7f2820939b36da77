#include "tests/support/chart_fixture.h"

#include "platform/system/exceptions.h"

namespace vorn {
namespace {

using namespace test;

const TDate Old = *EncodeDate(2019, 1, 1);
const TDate Limit = *EncodeDate(2020, 6, 15);

struct Look {
    const char* Name;
    Treatment Row;
    bool WithKeys; ///< IDFatto, IDEsclusa and IDNONAccettata are set
    bool ByDate;   ///< DataPrev is set
    bool Transparent;
    TColor Background;
    TColor Text;
    TFontStyles Style;
};

class Appearance : public ChartFixture {};

// Without a rule by operator or type: "Dottore" and "Tipo" are null unless a row names them.
const Look Looks[] = {
    {"Plain", {}, true, false, true, clBtnFace, clWindowText, 0},
    {"ByOperator", {.Dottore = String(u"A")}, true, false, true, clBtnFace, 0x00BB01, 0},
    {"OperatorWithoutColour", {.Dottore = String(u"Z")}, true, false, true, clBtnFace, clWindowText, 0},
    {"UnknownOperator", {.Dottore = String(u"a")}, true, false, true, clBtnFace, clWindowText, 0},
    {"FontByType", {.Tipo = String(u"A")}, true, false, true, clBtnFace, clWindowText, fsBold},
    {"Own", {.Aspetto = u"VER"}, true, false, false, 0x00AA00, 0xFF0000, fsBold},
    {"OwnWithoutColours", {.Aspetto = u"TRA"}, true, false, false, clBtnFace, clWindowText, 0},
    {"OwnNotFound", {.Aspetto = u"ver", .Dottore = String(u"A")}, true, false, true, clBtnFace, 0x00BB01, 0},
    {"OwnBeatsAll", {.Stato = 1, .Fatto = 1, .Aspetto = u"VER", .Dottore = String(u"A")}, true, false, false, 0x00AA00,
        0xFF0000, fsBold},
    {"OwnColour", {.Aspetto = u"VER", .Colore = std::int64_t{255}}, true, false, false, 0x00AA00, 255, fsBold},
    {"OwnAndOld", {.Aspetto = u"VER", .Data = Old}, true, true, false, 0xC0C0C0, 0xFF0000, fsBold},
    {"Old", {.Dottore = String(u"A"), .Data = Old}, true, true, false, 0xC0C0C0, 0x00BB01, 0},
    {"OldOnTheVeryDay", {.Data = Limit}, true, true, true, clBtnFace, clWindowText, 0},
    {"OldWithoutALimit", {.Data = Old}, true, false, true, clBtnFace, clWindowText, 0},
    {"Done", {.Fatto = 1, .Dottore = String(u"A")}, true, false, false, 0x0000F1, 0x0000F2, 0},
    {"DoneAndOld", {.Fatto = 1, .Data = Old}, true, true, false, 0x0000F1, 0x0000F2, 0},
    {"DoneBeatsExcluded", {.Stato = 1, .Fatto = 1}, true, false, false, 0x0000F1, 0x0000F2, 0},
    {"DoneWithoutAKey", {.Fatto = 1, .Dottore = String(u"A")}, false, false, true, clBtnFace, 0x00BB01, 0},
    {"ExcludedThoughDoneWithoutAKey", {.Stato = 1, .Fatto = 1}, false, false, true, clBtnFace, clGrayText, 0},
    {"Excluded", {.Stato = 1, .Dottore = String(u"A")}, true, false, false, 0x0000E1, 0x0000E2, 0},
    {"ExcludedWithoutAKey", {.Stato = 1, .Dottore = String(u"A")}, false, false, true, clBtnFace, clGrayText, 0},
    {"ExcludedAndOld", {.Stato = 1, .Data = Old}, false, true, false, 0xE0E0E0, clGrayText, 0},
    {"NotAccepted", {.Stato = 2}, true, false, false, 0x0000D1, 0x0000D2, 0},
    {"NotAcceptedWithoutAKey", {.Stato = 2, .Tipo = String(u"A")}, false, false, true, clBtnFace, clGrayText, 0},
    {"NotAcceptedAndOld", {.Stato = 2, .Data = Old}, false, true, false, 0xC0C0C0, clGrayText, 0},
    {"AnotherState", {.Stato = 3, .Dottore = String(u"A")}, true, false, true, clBtnFace, 0x00BB01, 0},
};

TEST_F(Appearance, FollowsTheRow)
{
    for (const Look& c : Looks) {
        SCOPED_TRACE(c.Name);
        chart->SetIDFatto(c.WithKeys ? u"FAT" : u"");
        chart->SetIDEsclusa(c.WithKeys ? u"ESC" : u"");
        chart->SetIDNONAccettata(c.WithKeys ? u"NON" : u"");
        chart->SetDataPrev(c.ByDate ? Limit : 0);
        Treatment row = c.Row;
        row.Id = 1;
        // Rows without a date of their own are recent; the field's empty value is older than any limit.
        if (row.Data == 0)
            row.Data = Limit + 1;
        ShowTreatments({row});
        for (const bool again : {false, true}) { // reading again changes nothing
            if (again)
                Post(u"Terapia", String(u"Altra"));
            const TDRLabel& label = *Label(1);
            EXPECT_EQ(label.Transparent(), c.Transparent);
            EXPECT_EQ(label.Color(), c.Background);
            EXPECT_EQ(label.Font().Color(), c.Text);
            EXPECT_EQ(label.FontColor(), c.Text);
            EXPECT_EQ(label.Font().Style(), c.Style);
        }
    }
}

TEST_F(Appearance, ARowThatIsOpenAgainLosesTheLookOfItsFormerState)
{
    chart->SetIDFatto(u"FAT");
    ShowTreatments({{.Id = 1, .Stato = 1}});
    ASSERT_EQ(Label(1)->Font().Color(), clGrayText);
    Post(u"stato", std::int64_t{0});
    EXPECT_EQ(Label(1)->Font().Color(), clBlack);
    EXPECT_EQ(Label(1)->FontColor(), clBlack);

    Post(u"Fatto", std::int64_t{1});
    ASSERT_FALSE(Label(1)->Transparent());
    Post(u"Fatto", std::int64_t{0});
    EXPECT_TRUE(Label(1)->Transparent()) << "the template's look is back";
    Post(u"ASPETTO", String(u"VER"));
    ASSERT_EQ(Label(1)->Font().Style(), fsBold);
    Post(u"ASPETTO", String());
    EXPECT_EQ(Label(1)->Font().Style(), 0);
    EXPECT_EQ(Record(1)->Evidenzia, u"");
}

TEST_F(Appearance, ASelectedLabelIsReadInItsOwnColourInEveryPhase)
{
    struct Case {
        const char* Name;
        Treatment Row;
        StringView Column;
        TValue Value;
        TColor Text;
    };
    const Case cases[] = {
        {"edited", {.Dottore = String(u"A")}, u"Terapia", String(u"Altra"), 0x00BB01},
        {"rule without a colour", {.Dottore = String(u"Z")}, u"Terapia", String(u"Altra"), clBlue},
        {"look without a colour", {}, u"ASPETTO", String(u"TRA"), clBlue},
        {"no longer excluded", {.Stato = 1}, u"stato", std::int64_t{0}, clBlack},
        {"done", {}, u"Fatto", std::int64_t{1}, 0x0000F2},
        {"no longer done", {.Fatto = 1}, u"Fatto", std::int64_t{0}, clBlue},
    };
    look->Font().SetColor(clBlue);
    chart->SetIDFatto(u"FAT");
    for (const Case& c : cases)
        for (const TDRBlink mode : {TDRBlink::blHiLo, TDRBlink::blInvert, TDRBlink::blNone})
            for (const int ticks : {0, 1, 2}) {
                timer->SetBlink(mode);
                Treatment row = c.Row;
                row.Id = 1;
                ShowTreatments({row});
                chart->ResetSelection();
                ClickLabel(1);
                ASSERT_TRUE(Label(1)->InList());
                for (int tick = 0; tick < ticks; ++tick)
                    timer->OnTimer(timer);
                Post(c.Column, c.Value);
                ASSERT_TRUE(Label(1)->InList());
                EXPECT_EQ(Label(1)->Font().Color(), c.Text) << c.Name << ' ' << static_cast<int>(mode) << ' ' << ticks;
                timer->OnTimer(timer);
                chart->ResetSelection();
                EXPECT_EQ(Label(1)->Font().Color(), c.Text) << c.Name << ' ' << static_cast<int>(mode) << ' ' << ticks;
            }
}

TEST_F(Appearance, TheRulesTellWhichTableGivesColourAndFont)
{
    using enum TXSetProp;
    struct Case {
        TXSetProp Color, Font;
        TColor Text;
        int Size;
        TFontStyles Style;
    };
    for (const Case& c :
        {Case{etOp, etTip, 0x00BB01, 10, fsBold}, Case{etTip, etOp, 0x00BB02, 12, fsItalic | fsStrikeOut},
            Case{etUnassigned, etTip, clWindowText, 10, fsBold}, Case{etOp, etUnassigned, 0x00BB01, 8, 0}}) {
        chart->LabelProp().SetSetColorProp(c.Color);
        chart->LabelProp().SetSetFontProp(c.Font);
        ShowTreatments({{.Id = 1, .Dottore = String(u"A"), .Tipo = String(u"A")}});
        EXPECT_EQ(Label(1)->Font().Color(), c.Text);
        EXPECT_EQ(Label(1)->FontColor(), c.Text);
        EXPECT_EQ(Label(1)->Font().Size(), c.Size);
        EXPECT_EQ(Label(1)->Font().Style(), c.Style);
    }
}

TEST_F(Appearance, AFontTextThatCannotBeReadGivesTheDefaultFont)
{
    look->Font().SetName(u"Arial");
    look->Font().SetSize(20);
    look->Font().SetColor(clRed);
    ShowTreatments(
        {{.Id = 1, .Tipo = String(u"BAD")}, {.Id = 2, .Tipo = String(u"NAME")}, {.Id = 3, .Tipo = String(u"Z")}});
    EXPECT_TRUE(Label(1)->Font() == TFont());
    EXPECT_EQ(Label(2)->Font().Size(), 20) << "no comma, no font";
    EXPECT_EQ(Label(3)->Font().Size(), 20);
    EXPECT_EQ(Label(3)->Font().Color(), clRed);
}

TEST_F(Appearance, TablesThatAreMissingOrClosedNeverStopAChart)
{
    chart->SetIDFatto(u"FAT");
    const std::vector<Treatment> rows
        = {{.Id = 1, .Fatto = 1, .Aspetto = u"VER", .Dottore = String(u"A"), .Tipo = String(u"A")}};
    chart->SetDataSourceAspetto(nullptr);
    ShowTreatments(rows);
    EXPECT_EQ(Label(1)->Font().Color(), 0x00BB01u);
    EXPECT_EQ(Label(1)->Font().Style(), fsBold);

    // A closed operators table ends the rules, so the font by type isn't reached either.
    operatorsSource->DataSet()->Close();
    ShowTreatments(rows);
    EXPECT_EQ(Label(1)->Font().Color(), clWindowText);
    EXPECT_EQ(Label(1)->Font().Style(), 0);

    // A bad appearance row leads to the rules with the label as far as it came.
    chart->LabelProp().SetDSOperatori(nullptr);
    chart->SetDataSourceAspetto(appearanceSource);
    appearanceSource->SetDataSet(NewTable(u"aspetto_corto", {{u"ID", TFieldType::ftString}}));
    static_cast<TMemoryDataSet*>(appearanceSource->DataSet())->AddRow({String(u"VER")});
    ShowTreatments(rows);
    EXPECT_FALSE(Label(1)->Transparent());
    EXPECT_EQ(Label(1)->Font().Style(), fsBold);
    EXPECT_EQ(Record(1)->Evidenzia, u"");
}

TEST(FontText, SetsWhatItHolds)
{
    struct Case {
        StringView Text;
        StringView Name;
        int Size;
        TFontStyles Style;
    };
    const Case cases[]
        = {{u"Arial,10,1000,", u"Arial", 10, fsBold}, {u"Arial,12,0101,", u"Arial", 12, fsItalic | fsStrikeOut},
            {u"Arial,12,0010,resto", u"Arial", 12, fsUnderline}, {u"Arial,12,x1 0,", u"Arial", 12, fsItalic},
            {u"Arial,12,1000", u"Arial", 12, fsUnderline}, {u"Arial,12,10,", u"Arial", 12, fsUnderline},
            {u"Arial,12,10000,", u"Arial", 12, fsUnderline}, {u"Arial,12", u"Arial", 20, fsUnderline},
            {u"Arial", u"Tahoma", 20, fsUnderline}, {u"", u"Tahoma", 20, fsUnderline}};
    for (const Case& c : cases) {
        TFont font;
        font.SetSize(20);
        font.SetStyle(fsUnderline);
        LoadFontFromString(c.Text, font);
        EXPECT_EQ(Utf8(font.Name()), Utf8(c.Name)) << Utf8(c.Text);
        EXPECT_EQ(font.Size(), c.Size) << Utf8(c.Text);
        EXPECT_EQ(font.Style(), c.Style) << Utf8(c.Text);
    }
    TFont font;
    EXPECT_THROW(LoadFontFromString(u"Arial,x,1000,", font), EConvertError);
    EXPECT_EQ(font.Name(), u"Arial");
}

TEST(FontStream, KeepsAllButTheStyleInItsFixedForm)
{
    TFont font;
    font.SetCharset(238);
    font.SetColor(0x123456);
    font.SetHeight(-16);
    font.SetName(u"\u00e8l");
    font.SetStyle(fsBold);
    TMemoryStream stream;
    SaveFontToStream(stream, font);
    std::vector<int> bytes;
    for (const std::byte b : stream.Memory())
        bytes.push_back(std::to_integer<int>(b));
    EXPECT_EQ(bytes,
        (std::vector<int>{
            238, 0, 0, 0, 0x56, 0x34, 0x12, 0, 0xF0, 0xFF, 0xFF, 0xFF, 12, 0, 0, 0, 2, 0, 0, 0, 0xE8, 0, 'l', 0}));
    for (int height = -100; height <= 100; ++height) {
        font.SetHeight(height);
        stream.Clear();
        SaveFontToStream(stream, font);
        stream.SetPosition(0);
        const auto loaded = LoadFontFromStream(stream);
        EXPECT_EQ(loaded->Style(), 0);
        loaded->SetStyle(fsBold);
        EXPECT_TRUE(*loaded == font) << height;
    }
}

} // namespace
} // namespace vorn

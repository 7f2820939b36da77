#include "tests/support/chart_fixture.h"
#include "tests/support/database_file.h"

namespace vorn {
namespace {

using namespace test;

class BadInput : public ChartFixture {
protected:
    /// Whatever has gone wrong before: a good background and good rows make a good chart.
    void ExpectStillUsable()
    {
        EXPECT_TRUE(Paintable());
        EXPECT_FALSE(backgrounds->ControlsDisabled());
        ShowBackground(Zones);
        ShowTreatments({{.Id = 1}, {.Id = 2, .Dente = u"21"}});
        EXPECT_EQ(Labels(), (std::vector<int>{1, 2}));
        ClickLabel(2);
        EXPECT_EQ(RowKey(), 2);
        Post(u"Terapia", String(u"Altra"));
        EXPECT_EQ(Label(2)->Caption(), u"Altra");
        EXPECT_TRUE(Paintable());
    }
};

TEST_F(BadInput, APictureThatCannotBeReadLeavesTheLastOneClean)
{
    const Bytes whole = Picture(200, 150, 0x336699);
    const auto pixel = [this] { return TRGB2TColor(view->Bitmap().GetPixels_ie24RGB(110, 63)); };
    Bytes truncated(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(whole.size() / 2));
    for (const BlobValue& bad : {Blob(u""), Blob(u"questa non è un'immagine"), Blob(truncated), BlobValue()}) {
        ShowBackground(Blob(whole), Zones);
        ShowTreatments({{.Id = 1, .Dente = u"11 21"}});
        ASSERT_EQ(pixel(), clBlue) << "a leader line";
        ShowBackground(bad, u"0 0 9 9 3 5 5 11");
        EXPECT_EQ(view->Bitmap().Width(), 200);
        EXPECT_EQ(view->Bitmap().Height(), 150);
        EXPECT_EQ(view->Background(), 0x336699u);
        EXPECT_EQ(chart->ZoneList().Count(), 1) << "the zones are the new row's";
        chart->CreaCollection();
        EXPECT_EQ(Label(1)->Left(), 5);
        EXPECT_EQ(pixel(), 0x336699u);
        ExpectStillUsable();
    }
}

TEST_F(BadInput, AnImageTooSmallForASecondPixelKeepsTheColour)
{
    ShowBackground(Blob(Picture(8, 8, clBlue)), Zones);
    for (const TPoint size : {TPoint{1, 1}, TPoint{1, 9}, TPoint{9, 1}}) {
        ShowBackground(Blob(Picture(size.X, size.Y, clRed)), Zones);
        EXPECT_EQ(view->Bitmap().Width(), size.X);
        EXPECT_EQ(view->Background(), clBlue);
    }
    ExpectStillUsable();
}

TEST_F(BadInput, ZoneTextOfAnyKindMakesZonesOfSomeKind)
{
    struct Case {
        String Text;
        int Zones;
        TRect First;
        String Name;
    };
    const String nul(1, u'\0');
    String endless;
    for (int i = 0; i < 10000; ++i)
        endless += u"1 1 2 2 3 1 1 z" + IntToStr(i) + u"\n";
    const Case cases[] = {
        {u"a b c d e f g nome", 1, {0, 0, 0, 0}, u"nome"},
        {u"4294967297 -99999999999999999999 2147483648 7 0 1 1 n", 1, {0, 0, 0, 7}, u"n"},
        {u"2147483647 -2147483648 2147483647 2147483647 3 2147483647 -2147483648 n", 1,
            {2147483647, -2147483647 - 1, 2147483647, 2147483647}, u"n"},
        {u"1 2 3 4 5 6 7 nessuna fine", 1, {1, 2, 3, 4}, u"nessuna fine"},
        {u"1 2 3 4 5 6 7 a" + nul + u"b", 1, {1, 2, 3, 4}, u"a" + nul + u"b"},
        {u"1" + nul + u" 2 3 4 5 6 7 a", 1, {0, 2, 3, 4}, u"a"},
        {endless, 10000, {1, 1, 2, 2}, u"z0"},
    };
    for (const Case& c : cases) {
        ShowBackground(c.Text);
        const std::string start = Utf8(c.Text.substr(0, 60));
        ASSERT_EQ(chart->ZoneList().Count(), c.Zones) << start;
        EXPECT_EQ(chart->ZoneList()[0]->rect, c.First) << start;
        EXPECT_EQ(chart->ZoneList()[0]->numZona, c.Name) << start;
        // Labels on them, a line between them, offsets and zoom: nothing may overflow.
        ShowTreatments({{.Id = 1, .Dente = c.Name}, {.Id = 2, .Dente = c.Name},
            {.Id = 3, .Dente = c.Name + u" " + c.Name}, {.Id = 4, .X = 2147483647, .Y = -2147483647}});
        EXPECT_EQ(Labels(), (std::vector<int>{1, 2, 3, 4})) << start;
        chart->ZoomIn();
        chart->ZoomReset();
        ExpectStillUsable();
    }
}

TEST_F(BadInput, AMissingColumnIsNamed)
{
    for (const StringView column : {u"stato", u"PADRE", u"ID", u"Terapia", u"Colore", u"Eseguita", u"Descrizione",
             u"Data", u"Dottore", u"X", u"Y", u"Dente"}) {
        const std::string message = MessageOf<EDatabaseError>([&] {
            ShowTreatments({{.Id = 1, .Dente = u"11"}, {.Id = 2, .Dente = u"12"}}, column);
        });
        EXPECT_NE(message.find('"' + Utf8(column) + '"'), std::string::npos) << message;
        EXPECT_NE(message.find("prestazioni"), std::string::npos) << message;
        EXPECT_EQ(Labels(), std::vector<int>()) << Utf8(column);
        EXPECT_EQ(treatments->RowIndex(), 0);
        ExpectStillUsable();
    }
    // Needed by a scroll only.
    ShowTreatments({{.Id = 1}, {.Id = 2, .Dente = u"12"}}, u"Progressivo");
    EXPECT_EQ(Labels(), (std::vector<int>{1, 2}));
    const std::string message = MessageOf<EDatabaseError>([this] { treatments->Next(); });
    EXPECT_NE(message.find("\"Progressivo\""), std::string::npos) << message;
    ExpectStillUsable();
}

TEST_F(BadInput, AMissingColumnOfTheBackgroundsIsNamedAndAZoneIsThereAllTheSame)
{
    using enum TFieldType;
    for (const StringView missing : {u"grafico_ie", u"Zone", u"Dialoghi"}) {
        auto* table = new TMemoryDataSet(root.get());
        table->SetName(u"rotti");
        for (const StringView column : {u"grafico_ie", u"Zone", u"Dialoghi"})
            if (column != missing)
                table->AddFieldDef(column, ftBlob);
        table->AddRow({});
        const std::string message = MessageOf<EDatabaseError>([&] { Replace(backgroundsSource, backgrounds, table); });
        EXPECT_NE(message.find('"' + Utf8(missing) + '"'), std::string::npos) << message;
        EXPECT_NE(message.find("rotti"), std::string::npos) << message;
        ASSERT_EQ(chart->ZoneList().Count(), 1);
        EXPECT_EQ(chart->ZoneList()[0]->numZona, u"GL");
        ASSERT_EQ(chart->NomiZoneList().Count(), 1);
        ExpectStillUsable();
    }
}

TEST_F(BadInput, ARootValueThatIsNoNumberIsQuoted)
{
    for (const StringView value : {u"", u"radice", u"1.5", u"99999999999"}) {
        chart->SetRootValue(value);
        const std::string message = MessageOf<EConvertError>([this] { ShowTreatments({{.Id = 1}}); });
        EXPECT_NE(message.find(Utf8(value)), std::string::npos) << message;
        EXPECT_TRUE(Paintable());
        chart->SetRootValue(u"0");
        ExpectStillUsable();
    }
}

TEST_F(BadInput, AnEmptyFieldFattoIsAnErrorOnlyWhereAParentHasChildRows)
{
    chart->SetFieldFatto({});
    ShowTreatments({{.Id = 1}});
    EXPECT_EQ(Labels(), std::vector<int>{1});
    EXPECT_THROW(ShowTreatments({{.Id = 1}, {.Id = 2, .Padre = 1}}), EDatabaseError);
    chart->SetFieldFatto(u"Eseguita");
    ExpectStillUsable();
}

TEST_F(BadInput, ARowThatSomebodyElseChangedIsNotOverwritten)
{
    ShowSqlTreatments({{.Id = 1}, {.Id = 2, .Dente = u"21"}});
    ExecuteOnFile(DatabaseFile(), {u"UPDATE prestazioni SET Fatto = 5 WHERE ID = 2"});
    ClickLabel(2);
    EXPECT_THROW(chart->SetSelectionFatto(), EUpdateConflict);
    EXPECT_EQ(Selected(), std::vector<int>{2});
    EXPECT_TRUE(Paintable());
    treatments->Cancel();
    treatments->Refresh();
    EXPECT_EQ(std::get<std::int64_t>(Stored(2, u"Fatto")), 5);
    ExpectStillUsable();
}

} // namespace
} // namespace vorn

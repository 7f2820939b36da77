#include "tests/support/chart_fixture.h"

#include "platform/controls/application.h"

namespace vorn {
namespace {

using namespace test;
using namespace std::string_literals;

class RecordReading : public ChartFixture {
protected:
    TPoint Place(int key) const { return {Label(key)->Left(), Label(key)->Top()}; }
    int Width(int key) const { return Label(key)->Width(); }
    int Height(int key) const { return Label(key)->Height(); }
};

TEST_F(RecordReading, HintAndFrameTellTheDoneState)
{
    struct Case {
        StringView Done;
        StringView Aspetto;
        const char* Hint;
        TDRBorder Border;
    };
    const Case cases[] = {
        {u"1", u"", "Otturazione 02/03/2020 A", TDRBorder::boSingle},
        {u"2", u"", "Otturazione 01/02/2019 A", TDRBorder::boDotted},
        {u"0", u"", "Otturazione 01/02/2019 A", TDRBorder::boNone},
        {u"", u"", "Otturazione 01/02/2019 A", TDRBorder::boNone},
        {u"1", u"VER", "Otturazione 02/03/2020 A\r\nVerde", TDRBorder::boSingle},
        {u"0", u"XXX", "Otturazione 01/02/2019 A", TDRBorder::boNone},
    };
    for (const Case& c : cases) {
        ShowTreatments({{.Id = 1,
            .Eseguita = String(c.Done),
            .Aspetto = String(c.Aspetto),
            .Dottore = String(u"A"),
            .Data = *EncodeDate(2019, 2, 1),
            .DataFatto = *EncodeDate(2020, 3, 2),
            .Descrizione = u"Otturazione"}});
        EXPECT_EQ(Utf8(Label(1)->Hint()), c.Hint) << Utf8(c.Done);
        EXPECT_EQ(Label(1)->Border(), c.Border) << Utf8(c.Done);
    }
    chart->SetFieldFatto({});
    ShowTreatments({{.Id = 1, .Eseguita = u"1", .Descrizione = u"Otturazione"}});
    EXPECT_EQ(Label(1)->Hint(), u"");
    EXPECT_EQ(Label(1)->Border(), TDRBorder::boNone);
}

TEST_F(RecordReading, ADottedFrameSurvivesAReadOfAnOpenRowASingleOneDoesNot)
{
    ShowTreatments({{.Id = 1, .Eseguita = u"2"}});
    Post(u"Eseguita", String(u"0"));
    EXPECT_EQ(Label(1)->Border(), TDRBorder::boDotted);
    Post(u"Eseguita", String(u"1"));
    EXPECT_EQ(Label(1)->Border(), TDRBorder::boSingle);
    Post(u"Eseguita", String(u"0"));
    EXPECT_EQ(Label(1)->Border(), TDRBorder::boNone);
}

TEST_F(RecordReading, AStoredPositionCountsByTheModes)
{
    struct Case {
        bool Reposition, Drag;
        int X, Y;
        TPoint Place;
        bool ShowDrag;
    };
    const TPoint zone = {15, 60};
    const Case cases[] = {
        {false, false, 120, 80, {120, 80}, false},
        {false, true, 120, 80, {120, 80}, false},
        {true, false, 120, 80, zone, false},
        {true, true, 120, 80, {120, 80}, true},
        {false, false, 0, 80, zone, false},
        {true, true, 120, 0, zone, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(&c - cases);
        chart->SetRiposizionaPrestazioni(c.Reposition);
        chart->SetShowDragPrestazioni(c.Drag);
        ShowTreatments({{.Id = 1, .X = c.X, .Y = c.Y}});
        EXPECT_EQ(Place(1), c.Place);
        EXPECT_EQ(Label(1)->ShowDrag, c.ShowDrag);
        EXPECT_EQ(Record(1)->Zona, c.Place == zone ? u"11" : u"");
        EXPECT_EQ(Label(1)->Parent(), view);
        EXPECT_EQ(Record(1)->boundRect, Label(1)->BoundsRect());
    }
}

TEST_F(RecordReading, LabelsOfAZoneStackInItsDirection)
{
    // Captions of several widths, narrower than the limit of vertical stacks; no label leaves the picture.
    for (const char16_t direction : u"01237"s) {
        SCOPED_TRACE(Utf8(String(1, direction)));
        ShowBackground(u"1 1 2 2 3 1 1 altra\n10 10 40 40 " + String(1, direction) + u" 100 70 18");
        ShowTreatments({{.Id = 1, .Dente = u"18", .Terapia = u"A"}, {.Id = 2, .Dente = u"altra"},
            {.Id = 3, .Dente = u"18 altra", .Terapia = u"Bbb"}, {.Id = 4, .Padre = 1, .Dente = u"18"},
            {.Id = 5, .Dente = u"18", .Terapia = u"Cc"}});
        ASSERT_LT(Width(3), 39);
        ASSERT_LT(Width(1), Width(3));
        TPoint at = {100, 70};
        for (const int key : {1, 3, 5}) {
            if (direction == u'0')
                at.X -= Width(key);
            else if (direction == u'1')
                at.Y -= Height(key);
            EXPECT_EQ(Place(key), at) << key;
            if (direction == u'0')
                at.X -= 8;
            else if (direction == u'2')
                at.X += Width(key) + 4;
            else if (direction == u'3')
                at.Y += Height(key);
        }
        EXPECT_EQ(Record(3)->Zona, u"18 altra");
    }
}

TEST_F(RecordReading, VerticalStacksLimitTheWidthButForTheGeneralZone)
{
    struct Case {
        StringView Zone;
        bool Cut;
    };
    for (const Case& c : {Case{u"1 100 70 18", true}, Case{u"3 100 70 18", true}, Case{u"0 100 70 18", false},
             Case{u"2 100 70 18", false}, Case{u"3 100 70 GL", false}, Case{u"1 100 70 GL", false},
             Case{u"3 100 70 gl", true}}) {
        ShowBackground(u"10 10 40 40 " + String(c.Zone));
        ShowTreatments({{.Id = 1, .Dente = chart->ZoneList()[0]->numZona, .Terapia = u"Una terapia lunga"},
            {.Id = 2, .Dente = u"Gl", .Terapia = u"Br"}});
        EXPECT_EQ(Width(1) == 39, c.Cut) << Utf8(c.Zone) << ": " << Width(1);
        EXPECT_EQ(Label(1)->AutoSize(), !c.Cut) << Utf8(c.Zone);
        EXPECT_TRUE(Label(2)->AutoSize()) << "narrow enough anyway";
    }
}

TEST_F(RecordReading, TheLimitItselfIsNotCut)
{
    TDRLabel measure(nullptr);
    const auto captionOfWidth = [&](int width) {
        for (std::size_t i = 8; i < 15; ++i)
            for (char16_t other = u'a'; other <= u'z'; ++other) {
                measure.SetCaption(String(i, u'i') + other);
                if (measure.Width() == width)
                    return measure.Caption();
            }
        return String();
    };
    for (const int width : {39, 40}) {
        const String caption = captionOfWidth(width);
        ASSERT_FALSE(caption.empty());
        ShowTreatments({{.Id = 1, .Dente = u"11", .Terapia = caption}});
        EXPECT_EQ(Width(1), 39);
        EXPECT_EQ(Label(1)->AutoSize(), width == 39);
    }
}

TEST_F(RecordReading, SeveralTeethStandAtTheFirstAndAreJoinedByALine)
{
    ShowTreatments({{.Id = 1, .Dente = u"21 22 GL"}, {.Id = 2, .Dente = u"21"}});
    EXPECT_EQ(Place(1), (TPoint{110, 60}));
    EXPECT_EQ(Record(1)->Zona, u"21 22 GL");
    EXPECT_EQ(Place(2), (TPoint{110 + Width(1) + 4, 60})) << "counts for the stack of its first zone";
    // GL stacks down, so its end of the line is the middle of its rectangle's width.
    for (const TPoint end : {TPoint{110, 63}, TPoint{190, 63}, TPoint{30, 113}})
        EXPECT_EQ(TRGB2TColor(view->GetLayer(0).Bitmap().GetPixels_ie24RGB(end.X, end.Y)), clBlue) << end.X;
    EXPECT_EQ(TRGB2TColor(view->GetLayer(0).Bitmap().GetPixels_ie24RGB(150, 63)), clBlue) << "between the ends";
    EXPECT_EQ(TRGB2TColor(view->GetLayer(0).Bitmap().GetPixels_ie24RGB(75, 63)), clWhite)
        << "zone 12 has no part in it";
}

TEST_F(RecordReading, AnUnknownNameGoesToTheFirstZone)
{
    ShowTreatments({{.Id = 1, .Dente = u"99"}, {.Id = 2, .Dente = u"11"}, {.Id = 3, .Dente = u"98 12"}});
    EXPECT_EQ(Place(1), (TPoint{15, 60}));
    EXPECT_EQ(Record(1)->Zona, u"11");
    EXPECT_EQ(Place(3), (TPoint{15, 60 + Height(1) + Height(2)}));
    EXPECT_EQ(Record(3)->Zona, u"11");
    // Its name still matches nothing, so each read places it anew, behind the last label that stands there.
    Post(u"Terapia", String(u"Altra"));
    EXPECT_EQ(Place(1), (TPoint{15, Place(3).Y + Height(3)}));
}

TEST_F(RecordReading, ANewRowWithoutAToothIsNotSeen)
{
    ShowTreatments({{.Id = 1, .Dente = u""}});
    ASSERT_TRUE(Label(1));
    EXPECT_EQ(Label(1)->Parent(), nullptr);
}

TEST_F(RecordReading, ARefreshMovesALabelOnlyToAnotherZone)
{
    ShowTreatments({{.Id = 1, .Dente = u"11"}, {.Id = 2, .Dente = u"11"}, {.Id = 3, .Dente = u"21"}});
    Label(1)->SetBounds(77, 88, Width(1), Height(1));
    Post(u"Terapia", String(u"Altra"));
    EXPECT_EQ(Place(1), (TPoint{77, 88}));
    EXPECT_EQ(Record(1)->boundRect, Label(1)->BoundsRect());
    Post(u"Dente", String(u"21"));
    EXPECT_EQ(Place(1), (TPoint{Place(3).X + Width(3) + 4, 60}));
    Post(u"Dente", String(u"12"));
    EXPECT_EQ(Place(1), (TPoint{60, 60 - Height(1)}));
    Post(u"Dente", String(u"11"));
    EXPECT_EQ(Place(1), (TPoint{15, Place(2).Y + Height(2)})) << "behind what stayed there";
    // From a zone to a stored place and back.
    treatments->Edit();
    treatments->FieldByName(u"X").SetAsInteger(5);
    treatments->FieldByName(u"Y").SetAsInteger(6);
    treatments->Post();
    EXPECT_EQ(Place(1), (TPoint{5, 6}));
    Post(u"X", std::int64_t{0});
    EXPECT_EQ(Place(1), (TPoint{15, Place(2).Y + Height(2)}));
}

TEST_F(RecordReading, WithoutAnyZoneARefreshSaysSoAndTakesTheLabelAway)
{
    ShowTreatments({{.Id = 1, .Dente = u"11"}, {.Id = 2, .Dente = u"12"}});
    backgrounds->Close();
    ASSERT_EQ(Labels(), (std::vector<int>{1, 2}));
    treatments->Edit();
    treatments->FieldByName(u"Terapia").SetAsString(u"Otturazione");
    treatments->FieldByName(u"Dente").SetAsString(u"22");
    treatments->Post();
    EXPECT_EQ(TakeMessages(),
        std::vector<std::string>{"La terapia Otturazione sulla zona 22 non è stata disegnata sul grafico perchè manca "
                                 "la relativa zona sensibile"});
    EXPECT_EQ(Labels(), std::vector<int>{2});
    EXPECT_EQ(chart->ListVornRec().Count(), 2);
    EXPECT_EQ(CurrentKey(), 0);
    Post(u"Terapia", String(u"Altra"));
    GoTo(2);
    EXPECT_EQ(CurrentKey(), 2);
}

TEST_F(RecordReading, WhileTheMessageWaitsTheChartMayBeRebuilt)
{
    ShowTreatments({{.Id = 1, .Dente = u"11"}});
    backgrounds->Close();
    SetMessageHandler([this](StringView) {
        backgrounds->Open();
        chart->CreaCollection();
    });
    Post(u"Dente", String(u"22"));
    EXPECT_EQ(Labels(), std::vector<int>{1});
    EXPECT_EQ(Record(1)->Zona, u"22");
}

} // namespace
} // namespace vorn

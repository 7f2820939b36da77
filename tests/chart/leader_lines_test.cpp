#include "tests/support/patient_fixture.h"
#include "tests/support/pixels.h"

#include "platform/imaging/image_control.h"

namespace vorn {
namespace {

using namespace test;

/// Zones that stack down (A, B), up (O, of odd width), left (L) and right (R); the anchors of
/// A, B and O lie in one row, those of L and R in another.
class LeaderLines : public PatientFixture {
protected:
    LeaderLines()
    {
        ShowBackground(u"85 0 115 30 3 100 40 A\r\n125 0 155 30 3 140 40 B\r\n0 0 31 30 1 20 40 O\r\n"
                       u"150 100 190 130 0 100 120 L\r\n100 100 140 130 2 140 120 R\r\n");
    }
    /// Keeps what is purely blue, in black on white.
    static QImage Blue(const QImage& image)
    {
        QImage blue = image.convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < blue.height(); ++y)
            for (int x = 0; x < blue.width(); ++x)
                blue.setPixel(x, y, blue.pixel(x, y) == Rgb(clBlue) ? Rgb(clBlack) : Rgb(clWhite));
        return blue;
    }
    QImage OnPicture() const { return Blue(view->GetLayer(0).Bitmap().Picture()); }
    QImage OnCanvas(int x = 0, int y = 0) const
    {
        QImage paper = Paper(view->ClientWidth() + 50, view->ClientHeight() + 50);
        TCanvas canvas(paper);
        chart->FListPaintTo(canvas, x, y);
        canvas.End();
        return paper;
    }
    /// A line along a row through points, with a square of 5 by 5 pixels on each; nothing for less than two.
    static void ExpectLine(const QImage& blue, const std::vector<TPoint>& points, int dx = 0)
    {
        ExpectPixels(blue, [&](int x, int y) {
            bool drawn = false;
            for (const TPoint& p : points)
                drawn |= std::abs(x - dx - p.X) <= 2 && std::abs(y - p.Y) <= 2;
            if (!points.empty() && y == points[0].Y)
                drawn |= points.front().X <= x - dx && x - dx <= points.back().X;
            return Rgb(drawn ? clBlack : clWhite);
        });
    }
};

TEST_F(LeaderLines, JoinThePointsOfTheZones)
{
    const std::pair<StringView, std::vector<TPoint>> cases[]
        = {{u"A B", {{115, 43}, {155, 43}}}, {u"O A", {{35, 43}, {115, 43}}}, {u"L R", {{100, 123}, {140, 123}}},
            {u"O A B", {{35, 43}, {115, 43}, {155, 43}}}, {u"A none B", {{115, 43}, {155, 43}}},
            {u"A  B", {{115, 43}, {155, 43}}}, {u"A none", {}}, {u"A ", {}}, {u"a b", {}}, {u"A b", {}}, {u"A", {}}};
    for (const auto& [dente, points] : cases) {
        SCOPED_TRACE(Utf8(dente));
        ShowTreatments({{.Id = 1, .Dente = String(dente), .Terapia = {}}});
        ExpectLine(OnPicture(), points);
        ExpectLine(Blue(OnCanvas()), points);
        EXPECT_EQ(view->LayersCurrent(), 0);
    }
}

TEST_F(LeaderLines, ScreenExportAndCanvasAgreeUnderAnOffset)
{
    ShowTreatments({{.Id = 1, .Dente = u"O A B", .Terapia = {}}, {.Id = 2, .Dente = u"L R", .X = -20, .Y = 70}});
    ASSERT_EQ(chart->OffsetX(), -20);
    const std::vector<TPoint> points = {{35, 43}, {115, 43}, {155, 43}};
    ExpectLine(OnPicture(), points); // none for the label that stands on a stored place
    ExpectLine(Blue(PictureOf(*view)), points, 20);
    ExpectLine(Blue(OnCanvas()), points, 20);
    ExpectLine(Blue(OnCanvas(11, 30)), points, 20); // the lines go by the chart's own origin
    TImage image(nullptr);
    chart->CreaPicture(&image);
    ExpectLine(Blue(image.Picture().Image()), points, 20);
}

TEST_F(LeaderLines, StayUntilTheNextRebuild)
{
    ShowTreatments({{.Id = 1, .Dente = u"A B", .Terapia = {}}});
    Change(1, u"Dente", u"L R");
    EXPECT_EQ(CountPixels(OnPicture(), Rgb(clBlack)), 2 * (2 * 25 + 35));
    ExpectLine(Blue(OnCanvas()), {{100, 123}, {140, 123}});
    chart->CreaCollection();
    ExpectLine(OnPicture(), {{100, 123}, {140, 123}});
    Change(1, u"Dente", u"A");
    chart->CreaCollection();
    ExpectLine(OnPicture(), {});
}

TEST_F(LeaderLines, TakeTheDottedPenOfALabelBeforeThem)
{
    ShowTreatments({{.Id = 1, .Dente = u"R", .Eseguita = u"2"}, {.Id = 2, .Dente = u"O A", .Terapia = {}}});
    ExpectLine(OnPicture(), {{35, 43}, {115, 43}});
    const QImage line = Blue(OnCanvas()).copy(40, 43, 70, 1);
    const int dots = CountPixels(line, Rgb(clBlack));
    EXPECT_GT(dots, 10);
    EXPECT_LT(dots, 60);
}

/// What a canvas shows of a label: white text, so that only the frame and the ground leave a trace.
TEST_F(LeaderLines, FramesFollowTheTextAndAreThinAndBlack)
{
    ShowTreatments({{.Id = 1, .X = 40, .Y = 50}});
    TDRLabel& label = *Label(1);
    label.Font().SetColor(clWhite);
    label.SetAutoSize(false);
    label.SetBounds(40, 50, 90, 60);
    const TPoint text = MeasureText(label.Font(), u"Ter", DT_NOPREFIX | DT_WORDBREAK, 90);
    const QRect frame(47, 59, text.X, text.Y);
    const int around = 2 * (frame.width() + frame.height()) - 4;
    using enum TDRBorder;
    for (const TDRBorder border : {boNone, boSingle, boRaised, boLowered, boDotted}) {
        SCOPED_TRACE(static_cast<int>(border));
        label.SetBorder(border);
        const QImage paper = OnCanvas(7, 9);
        const int black = CountPixels(paper, Rgb(clBlack));
        EXPECT_EQ(InkBox(paper), border == boNone ? QRect() : frame);
        EXPECT_EQ(InkBox(paper.copy(frame.adjusted(1, 1, -1, -1))), QRect()) << "nothing inside";
        if (border == boDotted)
            EXPECT_TRUE(black > around / 4 && black < around * 3 / 4) << black;
        else
            EXPECT_EQ(black, border == boNone ? 0 : around);
    }
    label.SetBorder(boNone);
    label.SetTransparent(false);
    label.SetColor(clRed);
    EXPECT_EQ(InkBox(OnCanvas(7, 9)), frame) << "the ground of an opaque label";
}

TEST_F(LeaderLines, TheDiagnosisBoxIsPaintedWithoutLabelsToo)
{
    ShowRecord({}, u"30 80 1");
    ShowTreatments({{.Id = 1, .Dente = u"A B", .Diagnosi = u"C"}});
    chart->SetEnabledImg(false);
    const TRect box = Box().BoundsRect();
    const QImage paper = OnCanvas();
    EXPECT_GT(InkBox(paper).width(), 20);
    EXPECT_TRUE(QRect(box.Left, box.Top, box.Width(), box.Height()).contains(InkBox(paper)));
    chart->SetDiagnosiShow(TDiagnosiShow::diagNone);
    EXPECT_EQ(InkBox(OnCanvas()), QRect());
    chart->SetDiagnosiShow(TDiagnosiShow::diagSigla);
    chart->SetDiagPazVisible(false);
    EXPECT_EQ(InkBox(OnCanvas()), QRect());
}

} // namespace
} // namespace vorn

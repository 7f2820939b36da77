#include "demo/export_picture.h"
#include "tests/demo/application_fixture.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QMouseEvent>

namespace vorn::demo {
namespace {

using test::Mouse;

class SampleApplication : public ApplicationFixture {
protected:
    void ClickGridRow(int row)
    {
        const QPoint at = Grid().visualRect(Grid().model()->index(row, 1)).center();
        QWidget* viewport = Grid().viewport();
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(
                type, QPointF(at), QPointF(viewport->mapToGlobal(at)), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(viewport, &event);
        }
    }
};

constexpr int CrownOn26 = 111;
constexpr int RootCanalOn26 = 109;
constexpr int BridgeOn13 = 112;
constexpr int CrownWithSteps = 104;
constexpr int BiteBeyondTheLeft = 129;

TEST_F(SampleApplication, SelectionFollowsBetweenGridAndChartBothWays)
{
    Mouse().Click(LabelOfKey(CrownOn26), {3, 3});
    EXPECT_EQ(CurrentKey(), CrownOn26);
    EXPECT_EQ(Grid().currentIndex().row(), session_->Treatments().RowIndex());
    EXPECT_TRUE(window_->findChild<QLabel*>(QStringLiteral("dettagli"))->text().contains(QStringLiteral("CORONA ZR")));

    ClickGridRow(7);
    EXPECT_EQ(session_->Treatments().RowIndex(), 7);
    EXPECT_FALSE(LabelOfKey(CrownOn26).InList());
    EXPECT_TRUE(LabelOfKey(CurrentKey()).InList());
}

TEST_F(SampleApplication, DoneMarksGoToTheParentAndItsSteps)
{
    Mouse().Click(LabelOfKey(CrownWithSteps), {3, 3});
    Trigger(QStringLiteral("Eseguita / da eseguire"));
    TSqlDataSet& rows = session_->Treatments();
    for (const int key : {104, 105, 106, 107}) {
        ASSERT_TRUE(rows.Locate(u"ID", std::int64_t{key}));
        EXPECT_EQ(rows.FieldByName(u"Fatto").AsInteger(), 1) << key;
    }
    EXPECT_EQ(LabelOfKey(CrownWithSteps).Border(), TDRBorder::boSingle);
}

TEST_F(SampleApplication, ADraggedGroupIsStillThereAfterARestart)
{
    Mouse().Click(LabelOfKey(RootCanalOn26), {20, 3});
    Mouse(Qt::ShiftModifier).Click(LabelOfKey(BridgeOn13), {20, 3});
    const TPoint group[] = {{LabelOfKey(RootCanalOn26).Left(), LabelOfKey(RootCanalOn26).Top()},
        {LabelOfKey(BridgeOn13).Left(), LabelOfKey(BridgeOn13).Top()}};
    Mouse mouse;
    mouse.Move(LabelOfKey(RootCanalOn26), {4, 4});
    mouse.Drag(LabelOfKey(RootCanalOn26), {4, 4}, {44, 24});

    Start();
    EXPECT_EQ(LabelOfKey(RootCanalOn26).Left(), group[0].X + 40);
    EXPECT_EQ(LabelOfKey(RootCanalOn26).Top(), group[0].Y + 20);
    EXPECT_EQ(LabelOfKey(BridgeOn13).Left(), group[1].X + 40);
    EXPECT_EQ(LabelOfKey(BridgeOn13).Top(), group[1].Y + 20);
}

TEST_F(SampleApplication, LabelsStayOnThePictureAtEveryZoom)
{
    TVornIEDBTerList& chart = session_->Chart();
    ASSERT_EQ(chart.OffsetX(), -25) << "the label beyond the left edge shifts the chart";
    const auto leftOnPicture
        = [&] { return LabelOfKey(BiteBeyondTheLeft).Left() - session_->View().GetLayer(0).Box().Left; };
    EXPECT_EQ(leftOnPicture(), -25);
    Mouse().Click(LabelOfKey(CrownOn26), {3, 3});

    Trigger(QStringLiteral("Ingrandisci"));
    Trigger(QStringLiteral("Ingrandisci"));
    EXPECT_EQ(chart.CurrentZoom(), 120);
    EXPECT_EQ(leftOnPicture(), -30);
    EXPECT_FALSE(LabelOfKey(BiteBeyondTheLeft).ShowDrag) << "a place is stored as it stands on the screen";
    EXPECT_TRUE(LabelOfKey(CrownOn26).InList()) << "the selection stays";

    // What has the chart read rows anew keeps zoom and places in step, too.
    const int crownLeft = LabelOfKey(CrownOn26).Left();
    Trigger(QStringLiteral("Eseguita / da eseguire"));
    EXPECT_EQ(leftOnPicture(), -30);
    EXPECT_EQ(LabelOfKey(CrownOn26).Left(), crownLeft);
    EXPECT_EQ(LabelOfKey(CrownOn26).Border(), TDRBorder::boSingle);

    Trigger(QStringLiteral("Dimensione reale"));
    EXPECT_EQ(leftOnPicture(), -25);
    EXPECT_TRUE(LabelOfKey(BiteBeyondTheLeft).ShowDrag);

    // Wherever a row is read, at whatever zoom, its label stays, and so it does at the zooms that follow.
    Mouse(Qt::ShiftModifier).Click(LabelOfKey(BiteBeyondTheLeft), {3, 3});
    const int natural = LabelOfKey(CrownOn26).Left();
    const int width = session_->View().Width();
    for (const int zoom : {100, 200, 120, 100}) {
        session_->ShowZoom(zoom);
        for (const bool read : {false, true}) {
            if (read)
                Trigger(QStringLiteral("Eseguita / da eseguire"));
            EXPECT_EQ(leftOnPicture(), -zoom / 4) << zoom << read;
            EXPECT_EQ(LabelOfKey(CrownOn26).Left(), natural * zoom / 100) << zoom << read;
        }
    }
    EXPECT_EQ(session_->View().Width(), width) << "no empty ground is left to scroll to";
}

TEST_F(SampleApplication, TheChooserShowsAnotherPatient)
{
    auto* chooser = window_->findChild<QComboBox*>(QStringLiteral("pazienti"));
    ASSERT_EQ(chooser->count(), 3);
    emit chooser->activated(2);
    EXPECT_EQ(session_->Treatments().RecordCount(), 300);
    EXPECT_EQ(session_->Chart().ListVornRec().Count(), 300);
    EXPECT_EQ(Grid().model()->rowCount(), 300);
}

TEST_F(SampleApplication, TheExportedPictureIsTheViewAsItStands)
{
    ChartSession session(File(), ChartSession::Setting::Export);
    session.ShowPatient(AdultPatient);
    session.ShowZoom(120);
    const QString file = folder_.filePath(QStringLiteral("grafico.png"));
    ExportChart(session, file);
    const QImage picture(file);
    EXPECT_EQ(picture.size(), QSize(session.View().Width(), session.View().Height()));
    EXPECT_EQ(picture.convertToFormat(QImage::Format_RGB32), ChartPicture(session));

    EXPECT_THROW(ExportChart(session, folder_.filePath(QStringLiteral("manca/grafico.png"))), std::runtime_error);
    EXPECT_THROW(session.ShowPatient(9), std::runtime_error);
}

} // namespace
} // namespace vorn::demo

#include "demo/qt_strings.h"
#include "tests/demo/window_fixture.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>

namespace vorn::demo {
namespace {

/// What the patient's chart row holds, read by a connection of its own.
class PatientRecord : public WindowTest {
protected:
    std::string Stored(const char* column, int patient = AdultPatient)
    {
        QString text;
        {
            QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("reader"));
            database.setDatabaseName(Path(QStringLiteral("studio.db")));
            EXPECT_TRUE(database.open());
            QSqlQuery query(database);
            EXPECT_TRUE(query.exec(
                QStringLiteral("SELECT %1 FROM cartella WHERE PAZIENTE = %2").arg(QLatin1String(column)).arg(patient)));
            if (query.next())
                text = query.value(0).toString();
        }
        QSqlDatabase::removeDatabase(QStringLiteral("reader"));
        return text.toStdString();
    }
    bool Veiled(StringView zone)
    {
        const TRect area = Zone(zone).rectOffeset;
        for (int i = 1; i < session_->View().GetLayersCount(); ++i)
            if (session_->View().GetLayer(i).ChartBox() == area && !session_->View().GetLayer(i).Selectable())
                return true;
        return false;
    }
    const TDRLabel& DiagnosisBox()
    {
        for (int i = 0; i < session_->View().ControlCount(); ++i)
            if (auto* label = dynamic_cast<TDRLabel*>(session_->View().Controls(i)))
                if (label->Caption().starts_with(u"Diagnosi\r\n"))
                    return *label;
        throw std::runtime_error("no box");
    }

    const QString mode_ = QStringLiteral("Denti mancanti");
};

TEST_F(PatientRecord, AClickInTheModeTakesAToothOutAndPutsItBack)
{
    const std::string before = Stored("Mancanti");
    ClickZone(u"21");
    EXPECT_EQ(Stored("Mancanti"), before) << "the mode is off";

    Action(mode_).setChecked(true);
    struct Case {
        const char16_t* Zone;
        std::size_t Place;
    };
    for (const Case c : {Case{u"21", 8}, Case{u"48", 16}, Case{u"38", 31}, Case{u"55", 32}, Case{u"75", 51}}) {
        SCOPED_TRACE(ToQt(c.Zone).toStdString());
        std::string expected = before;
        const bool missing = expected.at(c.Place) == '1';
        ASSERT_EQ(Veiled(c.Zone), missing);
        expected[c.Place] = missing ? '0' : '1';
        ClickZone(c.Zone);
        EXPECT_EQ(Stored("Mancanti"), expected);
        EXPECT_EQ(Veiled(c.Zone), !missing);
        ClickZone(c.Zone);
        EXPECT_EQ(Stored("Mancanti"), before);
        EXPECT_EQ(Veiled(c.Zone), missing);
    }
    EXPECT_FALSE(session_->IsTooth(Zone(u"GL")));
    Action(mode_).setChecked(false);
    ClickZone(u"21");
    EXPECT_EQ(Stored("Mancanti"), before);
}

TEST_F(PatientRecord, AShortTextGrowsAndAMissingRowIsMade)
{
    Start(LargePatient);
    Action(mode_).setChecked(true);
    EXPECT_EQ(Stored("Mancanti", LargePatient), "");
    session_->ToggleMissing(Zone(u"48"));
    EXPECT_EQ(Stored("Mancanti", LargePatient), std::string(16, '0') + '1');

    {
        ChartSession other(Path(QStringLiteral("studio.db")), ChartSession::Setting::Export);
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("writer"));
        database.setDatabaseName(Path(QStringLiteral("studio.db")));
        ASSERT_TRUE(database.open());
        ASSERT_TRUE(QSqlQuery(database).exec(QStringLiteral("DELETE FROM cartella WHERE PAZIENTE = 2")));
        other.ShowPatient(ChildPatient);
        for (const TZone* zone : other.Chart().ZoneList())
            if (zone->numZona == u"18") {
                EXPECT_TRUE(other.ToggleMissing(*zone));
                break;
            }
    }
    QSqlDatabase::removeDatabase(QStringLiteral("writer"));
    EXPECT_EQ(Stored("Mancanti", ChildPatient), "1");
}

TEST_F(PatientRecord, TheModeWorksUnderAZoomAndKeepsIt)
{
    Trigger(QStringLiteral("Ingrandisci"));
    session_->ToggleMissing(Zone(u"21"));
    EXPECT_TRUE(Veiled(u"21"));
    EXPECT_EQ(session_->Chart().CurrentZoom(), 110);
}

TEST_F(PatientRecord, TheSliderSetsTheVeil)
{
    QSlider& veil = Slider(QStringLiteral("opacitaVelo"));
    EXPECT_EQ(veil.value(), session_->Chart().Opacity());
    ASSERT_TRUE(Veiled(u"18"));
    veil.setValue(90);
    EXPECT_EQ(session_->Chart().Opacity(), 90);
    for (int i = 1; i < session_->View().GetLayersCount(); ++i)
        if (!session_->View().GetLayer(i).Selectable()) {
            EXPECT_EQ(session_->View().GetLayer(i).Opacity(), 90) << i;
        }
}

TEST_F(PatientRecord, TheDiagnosisBoxSaysWhatItIsAskedTo)
{
    Trigger(QStringLiteral("Solo la sigla"));
    const String initials = DiagnosisBox().Caption();
    EXPECT_NE(initials.find(u"16 - FRAT"), String::npos) << ToQt(initials).toStdString();
    Trigger(QStringLiteral("Solo la descrizione"));
    const String wording = DiagnosisBox().Caption();
    EXPECT_EQ(wording.find(u"FRAT"), String::npos);
    Trigger(QStringLiteral("Sigla e descrizione"));
    const String both = DiagnosisBox().Caption();
    EXPECT_NE(both.find(u"16 - FRAT "), String::npos);
    EXPECT_GT(both.size(), wording.size());
    Trigger(QStringLiteral("Nessuna diagnosi"));
    EXPECT_FALSE(session_->Chart().DiagPazVisible());
}

TEST_F(PatientRecord, AHiddenDiagnosisBoxStaysHidden)
{
    Trigger(QStringLiteral("Sigla e descrizione"));
    ASSERT_TRUE(session_->Chart().DiagPazVisible());
    Action(QStringLiteral("Mostra riquadro")).setChecked(true); // as the opened menu shows it
    Trigger(QStringLiteral("Mostra riquadro"));
    EXPECT_FALSE(session_->Chart().DiagPazVisible());
    EXPECT_TRUE(Stored("POS_DIAGNOSI").ends_with(" 0")) << Stored("POS_DIAGNOSI");
    Start();
    EXPECT_FALSE(session_->Chart().DiagPazVisible());
    Trigger(QStringLiteral("Mostra riquadro"));
    EXPECT_TRUE(session_->Chart().DiagPazVisible());
    EXPECT_TRUE(Stored("POS_DIAGNOSI").ends_with(" 1"));
}

} // namespace
} // namespace vorn::demo

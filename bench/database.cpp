#include "bench/database.h"

#include "demo/database_builder.h"
#include "demo/dentition/layout.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <stdexcept>

namespace vorn::bench {

namespace {

constexpr const char* PeerConnection = "bench-peer";
constexpr int FirstPatient = 1000;
constexpr int FirstSymbolPatient = 100000;
constexpr int LinePatient = 200000;

void Run(const QSqlDatabase& connection, const QString& statement, const QVariantList& values)
{
    QSqlQuery query(connection);
    bool good = query.prepare(statement);
    for (const QVariant& value : values)
        query.addBindValue(value);
    good = good && query.exec();
    if (!good)
        throw std::runtime_error(statement.toStdString() + ": " + query.lastError().text().toStdString());
}

/// All symbols of the catalogue in turn, all over the drawing; two in three scaled, every other one turned by half and
/// one in nine translucent.
void AddPlacements(const QSqlDatabase& connection, int placements)
{
    const QSize room = demo::PictureSize() - QSize(70, 110);
    Run(connection,
        QStringLiteral("INSERT INTO disegni (PAZIENTE, id, Nome, Angle, Scale, X, Y, Opacity) "
                       "WITH RECURSIVE conta (n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM conta WHERE n + 1 < ?) "
                       "SELECT ?, s.SIMB_ID, s.Nome, n % 2 * 180, 90 + n % 3 * 10, 1 + n * 97 % ?, 1 + n * 61 % ?, "
                       "CASE n % 9 WHEN 4 THEN 150 ELSE 255 END "
                       "FROM conta JOIN simboli AS s ON s.SIMB_ID = 1 + n * 7 % (SELECT count(*) FROM simboli) "
                       "ORDER BY n"),
        {placements, Database::PatientWithSymbols(placements), room.width(), room.height()});
}

/// Three neighbouring teeth of one quadrant for each treatment, or the first of them alone.
void AddLinePatient(QSqlDatabase& connection, bool severalTeeth)
{
    const int patient = Database::PatientWithLines(severalTeeth);
    demo::AddBenchmarkPatient(connection, patient, LineTreatments);
    // Counted from the patient's first row on, so that both have the same treatments on the same teeth.
    const QString row = QStringLiteral("(ID - (SELECT min(ID) FROM prestazioni WHERE PAZIENTE = %1))").arg(patient);
    const auto tooth
        = [&row](int place) { return QStringLiteral("((%1 % 4 + 1) * 10 + %1 / 4 % 6 + %2)").arg(row).arg(place); };
    QString teeth = QStringLiteral("CAST(%1 AS TEXT)").arg(tooth(1));
    if (severalTeeth)
        teeth += QStringLiteral(" || ' ' || %1 || ' ' || %2").arg(tooth(2), tooth(3));
    Run(connection, QStringLiteral("UPDATE prestazioni SET Dente = %1 WHERE PAZIENTE = ?").arg(teeth), {patient});
}

} // namespace

Database::Database() : file_(folder_.filePath(QStringLiteral("bench.db")))
{
    if (!folder_.isValid())
        throw std::runtime_error("No folder for the database: " + folder_.errorString().toStdString());
    demo::BuildDatabase(file_);
    QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QLatin1String(PeerConnection));
    connection.setDatabaseName(file_);
    if (!connection.open())
        throw std::runtime_error("Can't open the database: " + connection.lastError().text().toStdString());
    for (const char16_t* pragma : WithoutDisk)
        QSqlQuery(connection).exec(QString::fromUtf16(pragma));
    for (const int treatments : PatientSizes)
        demo::AddBenchmarkPatient(connection, PatientWith(treatments), treatments);
    for (const int placements : PlacementCounts)
        AddPlacements(connection, placements);
    for (const bool severalTeeth : {true, false})
        AddLinePatient(connection, severalTeeth);
}

Database::~Database()
{
    Connection().close();
    QSqlDatabase::removeDatabase(QLatin1String(PeerConnection));
}

QSqlDatabase Database::Connection() const
{
    return QSqlDatabase::database(QLatin1String(PeerConnection), false);
}

int Database::PatientWith(int treatments)
{
    return FirstPatient + treatments; // patients of the sample have lower numbers
}

int Database::PatientWithSymbols(int placements)
{
    return FirstSymbolPatient + placements;
}

int Database::PatientWithLines(bool severalTeeth)
{
    return LinePatient + (severalTeeth ? 1 : 0);
}

} // namespace vorn::bench

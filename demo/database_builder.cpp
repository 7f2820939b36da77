#include "demo/database_builder.h"

#include "demo/data/embedded_sql.h"
#include "demo/dentition/dentition.h"
#include "demo/sample_placements.h"
#include "demo/sql_script.h"
#include "demo/symbols/symbol_art.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace vorn::demo {

namespace {

using Values = std::initializer_list<std::pair<const char*, QVariant>>;

constexpr int LargePatientTreatments = 300;

[[noreturn]] void Fail(const QSqlDatabase& database, const QString& action, const QString& reason)
{
    throw std::runtime_error(QStringLiteral("%1: %2: %3").arg(database.databaseName(), action, reason).toStdString());
}

void Run(QSqlDatabase& database, const QString& statement, Values values = {})
{
    QSqlQuery query(database);
    bool good = query.prepare(statement);
    if (good) {
        for (const auto& [name, value] : values)
            query.bindValue(QLatin1String(name), value);
        good = query.exec();
    }
    if (!good)
        Fail(database, statement, query.lastError().text());
}

void RunScript(QSqlDatabase& database, const char* script, Values values = {})
{
    for (const QString& statement : SplitSql(QString::fromUtf8(script)))
        Run(database, statement, values);
}

void SpreadTreatments(QSqlDatabase& database, int patient, int treatments)
{
    RunScript(database, spread_treatments_sql, {{":paziente", patient}, {":quanti", treatments}});
}

/// Runs `work` in one transaction; whatever it throws undoes it all.
template <typename Work>
void InTransaction(QSqlDatabase& database, Work work)
{
    if (!database.transaction())
        Fail(database, QStringLiteral("BEGIN"), database.lastError().text());
    try {
        work();
        if (!database.commit())
            Fail(database, QStringLiteral("COMMIT"), database.lastError().text());
    } catch (...) {
        database.rollback();
        throw;
    }
}

QByteArray AsPng(const QImage& picture)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!picture.save(&buffer, "PNG"))
        throw std::runtime_error("A drawing can't be encoded as PNG");
    return png;
}

void FillCatalogue(QSqlDatabase& database)
{
    RunScript(database, symbols_sql);
    for (const SymbolArt& symbol : AllSymbols())
        Run(database, QStringLiteral("UPDATE simboli SET Grafico_ie = :disegno WHERE Nome = :nome"),
            {{":disegno", AsPng(RenderSymbol(symbol))}, {":nome", symbol.Name()}});
}

void PlaceSymbols(QSqlDatabase& database)
{
    for (const SamplePlacement& placement : SamplePlacements())
        Run(database,
            QStringLiteral("INSERT INTO disegni (PAZIENTE, id, Nome, Angle, Scale, X, Y, Opacity) "
                           "SELECT :paziente, SIMB_ID, Nome, :angolo, :scala, :x, :y, :opacita "
                           "FROM simboli WHERE Nome = :nome"),
            {{":paziente", placement.patient}, {":angolo", placement.angle}, {":scala", placement.scale},
                {":x", placement.corner.x()}, {":y", placement.corner.y()}, {":opacita", placement.opacity},
                {":nome", placement.symbol}});
}

void AddSymbols(QSqlDatabase& database)
{
    RunScript(database, symbol_tables_sql);
    FillCatalogue(database);
    PlaceSymbols(database);
}

void FillDatabase(QSqlDatabase& database)
{
    RunScript(database, schema_sql);
    RunScript(database, tables_of_codes_sql);
    RunScript(database, patient_adult_sql);
    RunScript(database, patient_child_sql);
    SpreadTreatments(database, LargePatient, LargePatientTreatments);
    Run(database, QStringLiteral("INSERT INTO cartella (PAZIENTE, Mancanti, POS_DIAGNOSI) VALUES (:paziente, '', '')"),
        {{":paziente", LargePatient}});
    Run(database,
        QStringLiteral("INSERT INTO sfondi (ID, NOME, grafico_ie, Zone, Dialoghi) "
                       "VALUES (1, 'Dentizione completa', :disegno, :zone, :nomi)"),
        {{":disegno", AsPng(RenderDentition())}, {":zone", ZoneText().toLatin1()},
            {":nomi", ZoneNameText().toLatin1()}});
    AddSymbols(database);
}

/// A connection of its own to a SQLite file, which needn't exist.
class FileConnection {
public:
    explicit FileConnection(const QString& path)
        : name_(QUuid::createUuid().toString(QUuid::WithoutBraces)),
          database_(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name_))
    {
        database_.setDatabaseName(path);
    }
    ~FileConnection() { Close(); }
    FileConnection(const FileConnection&) = delete;
    FileConnection& operator=(const FileConnection&) = delete;

    QSqlDatabase& Open()
    {
        if (!database_.open())
            Fail(database_, QStringLiteral("open"), database_.lastError().text());
        return database_;
    }

    void Close()
    {
        if (!database_.isValid())
            return;
        database_.close();
        database_ = QSqlDatabase();
        QSqlDatabase::removeDatabase(name_);
    }

private:
    QString name_;
    QSqlDatabase database_;
};

/// A file that is removed again unless it has been renamed.
class FileInTheMaking {
public:
    explicit FileInTheMaking(const QString& target)
        : path_(QStringLiteral("%1.%2.part").arg(target, QUuid::createUuid().toString(QUuid::WithoutBraces)))
    {
    }
    ~FileInTheMaking() { QFile::remove(path_); }
    FileInTheMaking(const FileInTheMaking&) = delete;
    FileInTheMaking& operator=(const FileInTheMaking&) = delete;

    const QString& Path() const { return path_; }

private:
    QString path_;
};

std::filesystem::path NativePath(const QString& path)
{
    return std::filesystem::path(path.toStdU16String());
}

} // namespace

void BuildDatabase(const QString& file)
{
    const FileInTheMaking making(file);
    FileConnection connection(making.Path());
    try {
        QSqlDatabase& database = connection.Open();
        InTransaction(database, [&] { FillDatabase(database); });
        connection.Close();
        std::filesystem::rename(NativePath(making.Path()), NativePath(file));
    } catch (const std::exception& error) {
        throw std::runtime_error("The database " + file.toStdString() + " can't be built: " + error.what());
    }
}

void UpgradeDatabase(const QString& file)
{
    if (!QFileInfo(file).isWritable())
        return;
    FileConnection connection(file);
    try {
        QSqlDatabase& database = connection.Open();
        if (!database.tables().contains(QStringLiteral("simboli")))
            InTransaction(database, [&] { AddSymbols(database); });
    } catch (const std::exception& error) {
        throw std::runtime_error("The database " + file.toStdString() + " can't be upgraded: " + error.what());
    }
}

void AddBenchmarkPatient(QSqlDatabase& database, int patient, int treatments)
{
    InTransaction(database, [&] {
        Run(database, QStringLiteral("INSERT INTO pazienti (id, cognome, nome) VALUES (:paziente, 'Prova', :quanti)"),
            {{":paziente", patient}, {":quanti", QString::number(treatments)}});
        Run(database, QStringLiteral("INSERT INTO cartella (PAZIENTE, Mancanti) VALUES (:paziente, '')"),
            {{":paziente", patient}});
        SpreadTreatments(database, patient, treatments);
    });
}

} // namespace vorn::demo

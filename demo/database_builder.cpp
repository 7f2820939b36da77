#include "demo/database_builder.h"

#include "demo/data/embedded_sql.h"
#include "demo/dentition/dentition.h"
#include "demo/sql_script.h"

#include <QBuffer>
#include <QFile>
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
    throw std::runtime_error(
        QStringLiteral("%1: %2: %3").arg(database.databaseName(), action, reason).toStdString());
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
template <typename Work> void InTransaction(QSqlDatabase& database, Work work)
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

QByteArray DrawingAsPng()
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!RenderDentition().save(&buffer, "PNG"))
        throw std::runtime_error("The drawing can't be encoded as PNG");
    return png;
}

void FillDatabase(QSqlDatabase& database)
{
    RunScript(database, schema_sql);
    RunScript(database, tables_of_codes_sql);
    RunScript(database, patient_adult_sql);
    RunScript(database, patient_child_sql);
    SpreadTreatments(database, LargePatient, LargePatientTreatments);
    Run(database,
        QStringLiteral("INSERT INTO cartella (PAZIENTE, Mancanti, POS_DIAGNOSI) VALUES (:paziente, '', '')"),
        {{":paziente", LargePatient}});
    Run(database,
        QStringLiteral("INSERT INTO sfondi (ID, NOME, grafico_ie, Zone, Dialoghi) "
                       "VALUES (1, 'Dentizione completa', :disegno, :zone, :nomi)"),
        {{":disegno", DrawingAsPng()}, {":zone", ZoneText().toLatin1()},
            {":nomi", ZoneNameText().toLatin1()}});
}

/// A connection to a new file that is removed again unless it has been renamed.
class FileInTheMaking {
public:
    explicit FileInTheMaking(const QString& target)
        : name_(QUuid::createUuid().toString(QUuid::WithoutBraces)),
          path_(QStringLiteral("%1.%2.part").arg(target, name_)),
          database_(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name_))
    {
        database_.setDatabaseName(path_);
    }
    ~FileInTheMaking()
    {
        Close();
        QFile::remove(path_);
    }
    FileInTheMaking(const FileInTheMaking&) = delete;
    FileInTheMaking& operator=(const FileInTheMaking&) = delete;

    QSqlDatabase& Database() { return database_; }
    const QString& Path() const { return path_; }

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
    QString path_;
    QSqlDatabase database_;
};

std::filesystem::path NativePath(const QString& path)
{
    return std::filesystem::path(path.toStdU16String());
}

} // namespace

void BuildDatabase(const QString& file)
{
    FileInTheMaking making(file);
    QSqlDatabase& database = making.Database();
    try {
        if (!database.open())
            Fail(database, QStringLiteral("open"), database.lastError().text());
        InTransaction(database, [&] { FillDatabase(database); });
        making.Close();
        std::filesystem::rename(NativePath(making.Path()), NativePath(file));
    } catch (const std::exception& error) {
        throw std::runtime_error("The database " + file.toStdString() + " can't be built: " + error.what());
    }
}

void AddBenchmarkPatient(QSqlDatabase& database, int patient, int treatments)
{
    InTransaction(database, [&] {
        Run(database,
            QStringLiteral("INSERT INTO pazienti (id, cognome, nome) VALUES (:paziente, 'Prova', :quanti)"),
            {{":paziente", patient}, {":quanti", QString::number(treatments)}});
        Run(database, QStringLiteral("INSERT INTO cartella (PAZIENTE, Mancanti) VALUES (:paziente, '')"),
            {{":paziente", patient}});
        SpreadTreatments(database, patient, treatments);
    });
}

} // namespace vorn::demo

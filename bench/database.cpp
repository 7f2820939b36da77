#include "bench/database.h"

#include "demo/database_builder.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <stdexcept>

namespace vorn::bench {

namespace {

constexpr const char* PeerConnection = "bench-peer";
constexpr int FirstPatient = 1000;

} // namespace

Database::Database() : file_(folder_.filePath(QStringLiteral("bench.db")))
{
    if (!folder_.isValid())
        throw std::runtime_error("No folder for the database: " + folder_.errorString().toStdString());
    demo::BuildDatabase(file_);
    QSqlDatabase connection
        = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QLatin1String(PeerConnection));
    connection.setDatabaseName(file_);
    if (!connection.open())
        throw std::runtime_error("Can't open the database: " + connection.lastError().text().toStdString());
    for (const char16_t* pragma : WithoutDisk)
        QSqlQuery(connection).exec(QString::fromUtf16(pragma));
    for (const int treatments : PatientSizes)
        demo::AddBenchmarkPatient(connection, PatientWith(treatments), treatments);
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

} // namespace vorn::bench

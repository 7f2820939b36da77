#include "tests/support/database_file.h"

#include "tests/support/strings_print.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

namespace vorn::test {

void ExecuteOnFile(StringView file, std::initializer_list<StringView> statements)
{
    const auto name = QStringLiteral("fixture");
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        database.setDatabaseName(QString::fromStdString(ToUtf8(file)));
        EXPECT_TRUE(database.open());
        QSqlQuery query(database);
        for (const StringView statement : statements)
            EXPECT_TRUE(query.exec(QString::fromStdString(ToUtf8(statement))))
                << Utf8(statement) << ": " << query.lastError().text().toStdString();
    }
    QSqlDatabase::removeDatabase(name);
}

} // namespace vorn::test

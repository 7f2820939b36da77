#pragma once

#include "platform/system/component.h"

#include <functional>
#include <map>
#include <vector>

class QSqlDatabase;

namespace vorn {

/// What a database server needs to be reached.
struct TServerParams {
    String Host;
    int Port = 5432;
    String Database;
    String User;
    String Password;
};

/// One column of a table as the database declares it.
struct TSqlColumn {
    String Name;
    String Declared;       ///< the type in the database's words
    bool Required = false; ///< must have a value that the database doesn't give by itself
    bool Writable = true;  ///< false if the database alone computes it
};

/// An open database: a SQLite file, or a PostgreSQL server that several workstations share.
class TSqlConnection : public TComponent {
public:
    explicit TSqlConnection(TComponent* owner = nullptr);
    ~TSqlConnection() override;

    /// Opens an existing file. Raises EDatabaseError that names the file and says what is wrong: missing, empty, a
    /// directory, not readable, no database, locked by another process. A file that can't be written opens read-only.
    void OpenFile(StringView fileName);
    /// Raises EDatabaseError that names host and database.
    void OpenServer(const TServerParams& params);
    void Close();
    bool Connected() const;
    bool ReadOnly() const { return readOnly_; }
    /// How long a statement waits for another process's lock before it raises, in milliseconds. 2000 at first.
    void SetBusyTimeout(int milliseconds);

    /// Runs one statement without a result. Raises EDatabaseError that quotes it.
    void Execute(StringView statement);
    void StartTransaction();
    void Commit();
    void Rollback();

    /// The file or server, for messages.
    const String& Location() const { return where_; }
    /// The columns of a table; none if there is no such table. Remembered until the next Execute or Close.
    const std::vector<TSqlColumn>& Columns(StringView table);
    /// For the classes of this folder.
    QSqlDatabase Handle() const;

private:
    void CheckFile(StringView fileName) const;
    void Connect(StringView what);
    std::vector<TSqlColumn> ReadColumns(StringView table) const;

    String connectionName_;
    String where_;
    std::map<String, std::vector<TSqlColumn>, std::less<>> tables_;
    int busyTimeout_ = 2000;
    bool readOnly_ = false;
};

} // namespace vorn

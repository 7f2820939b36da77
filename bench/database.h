#pragma once

#include <QSqlDatabase>
#include <QString>
#include <QTemporaryDir>

namespace vorn::bench {

inline constexpr int PatientSizes[] = {30, 300, 3000, 30000};
inline constexpr int PlacementCounts[] = {50, 500};
inline constexpr int LineTreatments = 300;

/// A sample database in a folder of its own that goes with it, with one patient for each of `PatientSizes` and
/// `PlacementCounts` and two with `LineTreatments` treatments, on several teeth each and on one tooth each.
class Database {
public:
    /// Throws std::runtime_error if it can't be built.
    Database();
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    const QString& File() const { return file_; }
    /// The number of the patient with this many treatments, one of `PatientSizes`.
    static int PatientWith(int treatments);
    /// The number of the patient with no treatment and this many symbols, one of `PlacementCounts`.
    static int PatientWithSymbols(int placements);
    /// The number of the patient whose treatments take several teeth each, or of the one with the same on the first of
    /// these teeth.
    static int PatientWithLines(bool severalTeeth);
    /// The peer's own connection.
    QSqlDatabase Connection() const;
    /// For the files that a row needs.
    QString Folder() const { return folder_.path(); }

private:
    QTemporaryDir folder_;
    QString file_;
};

/// A statement that keeps a connection from waiting for the disk; the rows measure the code in front of it.
inline constexpr const char16_t* WithoutDisk[] = {u"PRAGMA synchronous = OFF", u"PRAGMA journal_mode = MEMORY"};

} // namespace vorn::bench

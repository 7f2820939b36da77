#pragma once

class QSqlDatabase;
class QString;

namespace vorn::demo {

/// Patients of the sample database.
enum SamplePatient { AdultPatient = 1, ChildPatient = 2, LargePatient = 3 };

/// Creates the SQLite file `file`: tables, codes, patients 1 to 3, the drawing with its zones and the symbols. A file
/// that is there already is replaced. Everything goes through one transaction in a file beside it, which takes the name
/// only when it is complete, so a failure leaves `file` as it was.
///
/// Needs a QGuiApplication, since the drawing holds text. Throws std::runtime_error that names the file and,
/// where one failed, the statement.
void BuildDatabase(const QString& file);

/// Adds to a sample database of an earlier version the tables that it lacks, filled as in a new one; what is there
/// stays as it is. A file that can't be written is left alone. Throws std::runtime_error that names the file; it is
/// then unchanged.
void UpgradeDatabase(const QString& file);

/// Adds a patient with `treatments` rows, spread over all teeth and areas in turn. The same numbers give the
/// same rows. Throws std::runtime_error that names the statement; the database is then unchanged.
void AddBenchmarkPatient(QSqlDatabase& database, int patient, int treatments);

} // namespace vorn::demo

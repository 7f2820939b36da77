#pragma once

#include <benchmark/benchmark.h>

#include <QString>

#include <map>
#include <string>
#include <vector>

namespace vorn::bench {

inline constexpr const char* OursCounter = "ours";
inline constexpr const char* BesideCounter = "beside";

enum class Unit { Milliseconds, Bytes };

/// What a row shows, apart from its numbers.
struct RowKind {
    Unit unit = Unit::Milliseconds;
    /// What "beside" is: the peer, or the chart under another setting.
    const char* beside = "peer";
};

/// Collects the repetitions of each row; prints medians as one table and writes them as JSON.
class Results : public benchmark::BenchmarkReporter {
public:
    /// Before the row is run.
    void Expect(const std::string& row, RowKind kind) { kinds_[row] = kind; }

    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;
    /// Prints the table.
    void Finalize() override;
    /// A list of objects with "name", "ours_ms" and, with something beside it, "peer_ms" and "ratio"; bytes
    /// in the place of milliseconds where that is the unit. Throws std::runtime_error that names the file.
    void WriteJson(const QString& file) const;

private:
    struct Row {
        std::string name;
        RowKind kind;
        std::vector<double> ours;
        std::vector<double> beside;
        std::vector<double> ratio; // of each repetition
    };

    Row& RowOf(const std::string& name);

    std::map<std::string, RowKind> kinds_;
    std::vector<Row> rows_; // in the order in which they ran
};

} // namespace vorn::bench

#pragma once

#include "platform/data/memory_dataset.h"
#include "platform/data/sql_dataset.h"
#include "tests/support/strings_print.h"

#include <filesystem>
#include <memory>
#include <string>

namespace vorn::test {

/// A directory of its own for the files of one test.
class TempDir {
public:
    TempDir();
    ~TempDir();
    String File(const std::string& name) const { return FromUtf8((path_ / name).string()); }

private:
    std::filesystem::path path_;
};

/// Runs statements on a SQLite file, which is made if need be, through a connection of its own.
void MakeDatabase(StringView file, std::initializer_list<StringView> statements);

enum class Kind { Memory, Sqlite };

/// Table "cure" with the columns ID (generated key), Dente (text, required), Fatto (integer) and four rows:
/// 1 "11" 0, 2 "12" 1, 3 "13" null, 4 "11" 1.
class DataSetTest : public testing::TestWithParam<Kind> {
protected:
    void SetUp() override;

    std::vector<std::string> Column(StringView name);
    /// Event and state texts in the order in which they came; clears them.
    std::string TakeLog();
    /// Writes all events of the dataset to the log.
    void LogEvents();

    std::string log;
    TempDir dir;
    TSqlConnection connection;
    std::unique_ptr<TDataSet> ds;
};

} // namespace vorn::test

#pragma once

#include "platform/data/data_link.h"
#include "platform/data/memory_dataset.h"
#include "platform/data/sql_dataset.h"
#include "tests/support/database_file.h"
#include "tests/support/strings_print.h"

#include <QTemporaryDir>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vorn::test {

/// A directory of its own for the files of one test.
class TempDir {
public:
    String File(const char* name) const { return dir_.filePath(QString::fromUtf8(name)).toStdU16String(); }

private:
    QTemporaryDir dir_;
};

/// All events of a dataset by their names.
std::vector<std::pair<const char*, TDataSetNotifyEvent*>> Events(TDataSet& ds);

using Teller = std::function<void(const std::string& what)>;

/// Tells of every event that reaches it, by ordinal, and in brackets of what the base makes of it.
class TellingLink : public TDataLink {
public:
    explicit TellingLink(Teller tell) : tell_(std::move(tell)) {}

protected:
    void DataEvent(TDataEvent event, std::intptr_t info) override;
    void ActiveChanged() override { tell_(Active() ? "[active]" : "[inactive]"); }
    void DataSetChanged() override { tell_("[changed]"); }
    void DataSetScrolled(int distance) override { tell_("[scrolled " + std::to_string(distance) + "]"); }
    void LayoutChanged() override { tell_("[layout]"); }
    void RecordChanged(TField* field) override;
    void EditingChanged() override { tell_("[editing]"); }
    void UpdateData() override { tell_("[update]"); }

private:
    Teller tell_;
};

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

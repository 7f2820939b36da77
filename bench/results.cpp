#include "bench/results.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace vorn::bench {

namespace {

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

std::string Shown(double value, Unit unit)
{
    char text[32];
    if (unit == Unit::Bytes)
        std::snprintf(text, sizeof text, "%.0f B", value);
    else
        std::snprintf(text, sizeof text, "%.*f ms", value < 1 ? 4 : 2, value);
    return text;
}

} // namespace

Results::Row& Results::RowOf(const std::string& name)
{
    const auto found = std::find_if(rows_.begin(), rows_.end(), [&name](const Row& row) { return row.name == name; });
    if (found != rows_.end())
        return *found;
    rows_.push_back({name, kinds_.at(name), {}, {}, {}});
    return rows_.back();
}

void Results::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration)
            continue;
        Row& row = RowOf(run.run_name.function_name);
        if (row.ours.empty())
            std::fprintf(stderr, "%s\n", row.name.c_str());
        row.ours.push_back(run.counters.at(OursCounter));
        if (const auto beside = run.counters.find(BesideCounter); beside != run.counters.end()) {
            row.beside.push_back(beside->second);
            row.ratio.push_back(row.ours.back() / beside->second);
        }
    }
}

void Results::Finalize()
{
    std::printf("%-18s %12s %12s %8s\n", "", "ours", "beside", "ratio");
    for (const Row& row : rows_) {
        std::printf("%-18s %12s", row.name.c_str(), Shown(Median(row.ours), row.kind.unit).c_str());
        if (!row.beside.empty())
            std::printf(" %12s %8.3f  %s", Shown(Median(row.beside), row.kind.unit).c_str(), Median(row.ratio),
                row.kind.beside);
        std::printf("\n");
    }
    std::printf("Medians, milliseconds of processor time. Ratio: ours / beside, repetition by repetition.\n");
}

void Results::WriteJson(const QString& file) const
{
    QJsonArray list;
    for (const Row& row : rows_) {
        const QString unit = row.kind.unit == Unit::Bytes ? QStringLiteral("_bytes") : QStringLiteral("_ms");
        QJsonObject object{{QStringLiteral("name"), QString::fromStdString(row.name)},
            {QStringLiteral("ours") + unit, Median(row.ours)}};
        if (!row.beside.empty()) {
            object.insert(QLatin1String(row.kind.beside).toString().replace(u' ', u'_') + unit, Median(row.beside));
            object.insert(QStringLiteral("ratio"), Median(row.ratio));
        }
        list.append(object);
    }
    QSaveFile target(file);
    const QByteArray text = QJsonDocument(list).toJson();
    if (!target.open(QIODevice::WriteOnly) || target.write(text) != text.size() || !target.commit())
        throw std::runtime_error("Can't write " + file.toStdString() + ": " + target.errorString().toStdString());
}

} // namespace vorn::bench

#include "bench/peer_symbols.h"
#include "bench/rows.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QRegularExpression>

#include <cstdio>
#include <stdexcept>

namespace {

using namespace vorn::bench;

constexpr int Repetitions = 9;
constexpr double SecondsEach = 0.1;

struct BenchOptions {
    QString json;
    QString pictures;
    QRegularExpression filter;
};

BenchOptions ReadOptions(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription("Times the chart beside a graphics scene that shows the same.");
    parser.addHelpOption();
    parser.addOptions(
        {{"json", "Also write the table as JSON.", "FILE"}, {"filter", "Only the rows whose name matches.", "REGEX"},
            {"pictures", "Only paint 300 treatments and 50 symbols by both and save the pictures.", "FOLDER"}});
    parser.process(application);
    BenchOptions options{parser.value("json"), parser.value("pictures"), QRegularExpression(parser.value("filter"))};
    if (!options.filter.isValid())
        throw std::runtime_error("--filter: " + options.filter.errorString().toStdString());
    return options;
}

void SavePictures(Sides& sides, const QDir& folder)
{
    constexpr int symbols = 50;
    sides.Chart().Show(300);
    sides.Chart().ShowSymbols(symbols);
    sides.Peer().Show(300);
    for (const int percent : {100, 150}) {
        sides.Chart().Session().ShowZoom(percent);
        sides.Peer().ZoomTo(percent / 100.0);
        const PeerSymbols peerSymbols(sides.Peer(), sides.Data(), Database::PatientWithSymbols(symbols));
        for (const auto& [name, image] : {std::pair("ours", sides.Chart().Paint()), {"peer", sides.Peer().Paint()}}) {
            const QString file = folder.filePath(QStringLiteral("%1-%2.png").arg(name).arg(percent));
            if (!image.save(file))
                throw std::runtime_error("Can't write " + file.toStdString());
        }
    }
}

void Register(const BenchRow& row, Sides& sides, Results& results)
{
    results.Expect(row.name, row.kind);
    const auto run = [&row, &sides](benchmark::State& state) {
        try {
            row.run(state, sides);
        } catch (const std::exception& error) {
            throw std::runtime_error(row.name + ": " + error.what());
        }
    };
    benchmark::RegisterBenchmark(row.name.c_str(), run)
        ->UseManualTime()
        ->MinTime(SecondsEach)
        ->Repetitions(Repetitions);
}

int Run(const BenchOptions& options)
{
    Database database;
    Sides sides(database);
    if (!options.pictures.isEmpty()) {
        SavePictures(sides, QDir(options.pictures));
        return 0;
    }
    std::vector<BenchRow> all;
    AddChartRows(all);
    AddInteractionRows(all);
    AddSymbolRows(all);
    AddPanelRows(all);
    AddPictureRows(all);
    AddFormRows(all);
    Results results;
    int count = 0;
    for (const BenchRow& row : all) {
        if (!options.filter.match(QString::fromStdString(row.name)).hasMatch())
            continue;
        Register(row, sides, results);
        ++count;
    }
    if (count == 0)
        throw std::runtime_error("No row matches --filter");
    benchmark::RunSpecifiedBenchmarks(&results); // what a row raises ends the run
    if (!options.json.isEmpty())
        results.WriteJson(options.json);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    int noArguments = 1; // the library's own options are not offered
    benchmark::Initialize(&noArguments, argv);
    try {
        return Run(ReadOptions(application));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
}

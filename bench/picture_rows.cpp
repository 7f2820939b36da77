#include "bench/measuring.h"
#include "bench/peer_symbols.h"
#include "bench/rows.h"
#include "demo/database_builder.h"
#include "demo/qt_strings.h"
#include "platform/imaging/image_control.h"

#include <QFile>
#include <QImageReader>

#include <cmath>
#include <cstdlib>
#include <stdexcept>

namespace vorn::bench {

namespace {

constexpr QSize PhotoSize(6000, 4000);
/// Every tooth missing.
const String All(52, u'1');

int VeilsOf(ChartSide& side)
{
    TImageEnView& view = side.Session().View();
    int veils = 0;
    for (int layer = 1; layer < view.GetLayersCount(); ++layer)
        veils += view.GetLayer(layer).Locked() ? 1 : 0;
    return veils;
}

/// The adult's whole chart as a picture for the application.
void Export(benchmark::State& state, Sides& sides)
{
    constexpr int patient = demo::AdultPatient;
    const QString missing = ReadMissing(sides.Data().Connection(), patient);
    ChartSide& chart = sides.Chart();
    chart.SetMissing(demo::FromQt(missing));
    chart.ShowPatient(patient);
    PeerScene& peer = sides.Peer();
    peer.ShowPatient(patient);
    peer.Rebuild();
    AddPeerVeils(peer, missing);
    {
        PeerSymbols symbols(peer, sides.Data(), patient);
        TImage image(nullptr);
        MeasureTime(
            state, {{}, [&] { chart.Session().Chart().CreaPicture(&image); }, {}}, {{}, [&] { peer.Paint(); }, {}});
        if (image.Picture().IsEmpty())
            throw std::runtime_error("The exported picture is empty");
    }
    peer.Rebuild();
    chart.SetMissing(u"");
}

/// A rebuild with every tooth missing, beside the peer's.
void Veils(benchmark::State& state, Sides& sides, int treatments)
{
    ChartSide& chart = sides.Chart();
    PeerScene& peer = sides.Peer();
    chart.Show(treatments);
    peer.Show(treatments);
    chart.SetMissing(All);
    const auto rebuildChart = [&] {
        chart.Rebuild();
        chart.Paint();
    };
    const auto rebuildPeer = [&] {
        peer.Rebuild();
        AddPeerVeils(peer, demo::ToQt(All));
        peer.Paint();
    };
    MeasureTime(state, {{}, rebuildChart, {}}, {{}, rebuildPeer, {}});
    if (VeilsOf(chart) != static_cast<int>(All.size()))
        throw std::runtime_error("Not every tooth is veiled");
    peer.Rebuild();
    chart.SetMissing(u"");
    chart.Rebuild();
}

/// The same beside a rebuild without veils.
void VeilsCost(benchmark::State& state, Sides& sides, int treatments)
{
    ChartSide& chart = sides.Chart();
    chart.Show(treatments);
    const auto rebuild = [&] {
        chart.Rebuild();
        chart.Paint();
    };
    MeasureTime(state, {[&] { chart.SetMissing(All); }, rebuild, {}}, {[&] { chart.SetMissing(u""); }, rebuild, {}});
    chart.SetMissing(u"");
    chart.Rebuild();
}

/// A rebuild and all labels and lines on a picture; beside it the same treatments on one tooth each, which have no
/// lines.
void Lines(benchmark::State& state, Sides& sides)
{
    ChartSide& chart = sides.Chart();
    TVornIEDBTerList& list = chart.Session().Chart();
    const auto paint = [&] {
        chart.Rebuild();
        TIEBitmap picture;
        picture.Allocate(list.MaxRect.Right, list.MaxRect.Bottom);
        list.FListPaintTo(picture.GetCanvas(), 0, 0);
    };
    const auto show = [&](bool severalTeeth) { chart.ShowPatient(Database::PatientWithLines(severalTeeth)); };
    MeasureTime(state, {[&] { show(true); }, paint, {}}, {[&] { show(false); }, paint, {}});
}

/// A picture with soft shapes and with the grain of a camera, as a JPEG file.
QString Photograph(const Database& database)
{
    const QString file = database.Folder() + QStringLiteral("/photo.jpg");
    if (QFile::exists(file))
        return file;
    QImage photo(PhotoSize, QImage::Format_RGB32);
    std::uint32_t grain = 1;
    for (int y = 0; y < photo.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(photo.scanLine(y));
        for (int x = 0; x < photo.width(); ++x) {
            grain = grain * 1664525u + 1013904223u;
            const int noise = static_cast<int>(grain >> 28) - 8;
            const double soft = std::sin(x / 310.0) * std::cos(y / 190.0);
            const int light = 120 + static_cast<int>(90 * soft) + noise;
            line[x] = qRgb(light + 25, light, 220 - light);
        }
    }
    if (!photo.save(file, "JPEG", 90))
        throw std::runtime_error("Can't write " + file.toStdString());
    return file;
}

/// From the file to the resampled picture in the container; beside it the bare decoder.
void LoadPhotograph(benchmark::State& state, Sides& sides)
{
    const QString file = Photograph(sides.Data());
    ChartSide& side = sides.Chart();
    side.Show(30);
    TVornIEDBTerList& chart = side.Session().Chart();
    const TPoint background = chart.GetSizePictureContainer();
    chart.SetPictureContainer(demo::FromQt(file));
    chart.SetShowPictureContainer(true);
    const QSize fitting = PhotoSize.scaled(background.X, background.Y, Qt::KeepAspectRatio);
    const TPoint shown = chart.GetSizePictureContainer();
    if (std::abs(shown.X - fitting.width()) > 1 || std::abs(shown.Y - fitting.height()) > 1)
        throw std::runtime_error("The photograph isn't shown");
    // With a width the name is another one than the chart holds, so it loads the file again.
    const String name = demo::FromQt(file) + u',' + demo::FromQt(QString::number(background.X));
    const auto decode = [&] {
        QImageReader reader(file);
        reader.setAutoTransform(true);
        if (reader.read().isNull())
            throw std::runtime_error("The photograph can't be read");
    };
    MeasureTime(state, {{}, [&] { chart.SetPictureContainer(name); }, {}}, {{}, decode, {}});
    chart.ResetPictureContainer();
}

} // namespace

void AddPictureRows(std::vector<BenchRow>& rows)
{
    constexpr int treatments = 30;
    const auto row = [](auto run, auto... numbers) {
        return [run, numbers...](benchmark::State& state, Sides& sides) { run(state, sides, numbers...); };
    };
    const auto beside = [](const char* what) { return RowKind{Unit::Milliseconds, what}; };
    rows.push_back({"export", {}, row(Export)});
    rows.push_back({"veils/52", {}, row(Veils, treatments)});
    rows.push_back({"veils/cost", beside("without veils"), row(VeilsCost, treatments)});
    rows.push_back({"lines/300", beside("one tooth each"), row(Lines)});
    rows.push_back({"photo/24M", beside("bare decoder"), row(LoadPhotograph)});
}

} // namespace vorn::bench

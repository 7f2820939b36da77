#include "bench/measuring.h"
#include "bench/rows.h"
#include "chart/symbol_panel.h"
#include "demo/qt_strings.h"
#include "platform/imaging/thumbnail_view.h"

#include <QApplication>
#include <QListWidget>

#include <stdexcept>

namespace vorn::bench {

namespace {

constexpr QSize PanelSize(420, 700);
constexpr int ThumbnailSize = 66;
constexpr int ThumbnailGap = 6;

/// One symbol as the peer has it at hand.
struct PeerSymbol {
    int id = 0;
    QString text;
    QByteArray picture;
};

/// A catalogue of this many symbols: the sample's over and over, under numbers of their own.
void OpenCatalogue(TSqlDataSet& rows, TSqlConnection* connection, int symbols)
{
    rows.SetConnection(connection);
    rows.SetCommandText(u"WITH RECURSIVE conta (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM conta WHERE n < :quanti) "
                        u"SELECT n AS SIMB_ID, s.Nome, s.Terapia, s.Grafico_ie, s.Scale, s.Angle, s.Opacity FROM conta "
                        u"JOIN simboli AS s ON s.SIMB_ID = 1 + n % (SELECT count(*) FROM simboli) ORDER BY n");
    rows.SetParam(u"quanti", static_cast<std::int64_t>(symbols));
    rows.Open();
    if (rows.RecordCount() != symbols)
        throw std::runtime_error("The catalogue has the wrong size");
}

std::vector<PeerSymbol> ReadPeerSymbols(TSqlDataSet& rows)
{
    std::vector<PeerSymbol> symbols;
    TMemoryStream stream;
    for (rows.First(); !rows.Eof(); rows.Next()) {
        stream.Clear();
        rows.FieldByName(u"Grafico_ie").SaveToStream(stream);
        QString text = demo::ToQt(rows.FieldByName(u"Nome").AsString());
        if (const String therapy = rows.FieldByName(u"Terapia").AsString(); !therapy.empty())
            text += u'\n' + demo::ToQt(therapy);
        symbols.push_back({rows.FieldByName(u"SIMB_ID").AsInteger(), text,
            QByteArray(reinterpret_cast<const char*>(stream.Memory().data()), static_cast<qsizetype>(stream.Size()))});
    }
    return symbols;
}

/// A list of icons as one would set it up for speed: all of one size, laid out once, nothing to be dragged about.
class PeerPanel {
public:
    PeerPanel()
    {
        list_.setViewMode(QListView::IconMode);
        list_.setMovement(QListView::Static);
        list_.setResizeMode(QListView::Adjust);
        list_.setUniformItemSizes(true);
        list_.setIconSize({ThumbnailSize, ThumbnailSize});
        list_.setGridSize({ThumbnailSize + ThumbnailGap, ThumbnailSize + ThumbnailGap});
        list_.resize(PanelSize);
        list_.show();
        QApplication::processEvents();
    }
    void Clear()
    {
        list_.clear();
        QApplication::processEvents();
    }
    void Fill(const std::vector<PeerSymbol>& symbols)
    {
        for (const PeerSymbol& symbol : symbols) {
            auto* item = new QListWidgetItem(QIcon(QPixmap::fromImage(QImage::fromData(symbol.picture))), QString());
            item->setData(Qt::UserRole, symbol.id);
            item->setToolTip(symbol.text);
            list_.addItem(item);
        }
        list_.setCurrentRow(0);
        QApplication::processEvents();
    }

private:
    QListWidget list_;
};

/// From the catalogue's rows to the painted panel.
void FillPanel(benchmark::State& state, Sides& sides, int symbols)
{
    TSqlDataSet rows;
    OpenCatalogue(rows, sides.Chart().Session().Treatments().Connection(), symbols);
    const std::vector<PeerSymbol> peerSymbols = ReadPeerSymbols(rows);
    TImageEnMView panel(nullptr);
    panel.SetThumbWidth(ThumbnailSize);
    panel.SetThumbHeight(ThumbnailSize);
    panel.SetHorizBorder(ThumbnailGap);
    panel.SetVertBorder(ThumbnailGap);
    panel.SetBackground(clWhite);
    panel.Widget()->resize(PanelSize);
    panel.Widget()->show();
    PeerPanel peer;
    const auto settle = [&panel] {
        QApplication::processEvents();
        panel.Update();
    };
    const auto clear = [&] {
        panel.Clear();
        settle();
    };
    const auto fill = [&] {
        CaricaSimboliMView(panel, rows);
        settle();
    };
    MeasureTime(state, {clear, fill, {}}, {[&] { peer.Clear(); }, [&] { peer.Fill(peerSymbols); }, {}});
    if (panel.GetImageCount() != symbols || panel.GetImageWidth(symbols - 1) == 0)
        throw std::runtime_error("The panel isn't full");
}

} // namespace

void AddPanelRows(std::vector<BenchRow>& rows)
{
    rows.push_back({"panel/500", {}, [](benchmark::State& state, Sides& sides) { FillPanel(state, sides, 500); }});
}

} // namespace vorn::bench

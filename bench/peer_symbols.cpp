#include "bench/peer_symbols.h"

#include <QApplication>
#include <QGraphicsPixmapItem>
#include <QGraphicsRectItem>
#include <QPen>

namespace vorn::bench {

namespace {

constexpr int VeilOpacity = 230;

/// The tooth at a place of the chart row: permanent teeth, then milk teeth, each from the patient's upper right to his
/// upper left and from his lower right to his lower left.
QString ToothAt(int place)
{
    constexpr int permanent = 32;
    const int perQuadrant = place < permanent ? 8 : 5;
    const int inSet = place < permanent ? place : place - permanent;
    constexpr int quadrants[] = {1, 2, 4, 3};
    const int turn = inSet / perQuadrant;
    const int along = inSet % perQuadrant;
    const int quadrant = quadrants[turn] + (place < permanent ? 0 : 4);
    const int tooth = turn % 2 == 0 ? perQuadrant - along : along + 1;
    return QString::number(quadrant * 10 + tooth);
}

} // namespace

PeerSymbols::PeerSymbols(PeerScene& scene, const Database& database, int patient)
    : scene_(scene), catalogue_(ReadPeerCatalogue(database.Connection())),
      placements_(ReadPeerPlacements(database.Connection(), patient))
{
    Rebuild();
}

PeerSymbols::~PeerSymbols()
{
    qDeleteAll(items_);
}

void PeerSymbols::Clear()
{
    qDeleteAll(items_);
    items_.clear();
}

void PeerSymbols::Rebuild()
{
    Clear();
    items_.reserve(placements_.size());
    QHash<int, QPixmap> pictures;
    for (const PeerPlacement& placement : placements_) {
        auto found = pictures.find(placement.symbol);
        if (found == pictures.end())
            found = pictures.insert(
                placement.symbol, QPixmap::fromImage(QImage::fromData(catalogue_.value(placement.symbol))));
        AddItem(placement, *found);
    }
}

void PeerSymbols::AddItem(const PeerPlacement& placement, const QPixmap& picture)
{
    auto* item = new QGraphicsPixmapItem(picture);
    const QSizeF shown(picture.width() * placement.scale / 100, picture.height() * placement.scale / 100);
    const double zoom = scene_.Scale();
    if (placement.scale != 100 || placement.angle != 0) {
        const QPointF middle(shown.width() / 2, shown.height() / 2);
        QTransform transform;
        transform.scale(zoom, zoom);
        transform.translate(middle.x(), middle.y());
        transform.rotate(placement.angle);
        transform.translate(-middle.x(), -middle.y());
        transform.scale(shown.width() / picture.width(), shown.height() / picture.height());
        item->setTransform(transform);
        item->setTransformationMode(Qt::SmoothTransformation);
    } else if (zoom != 1) {
        item->setTransform(QTransform::fromScale(zoom, zoom));
    }
    item->setPos(QPointF(placement.corner) * zoom);
    item->setOpacity(placement.opacity / 255.0);
    item->setZValue(SymbolHeight);
    item->setFlag(QGraphicsItem::ItemIsMovable);
    item->setShapeMode(QGraphicsPixmapItem::BoundingRectShape); // the whole picture is a handle, as ours is
    scene_.Scene().addItem(item);
    items_.push_back(item);
}

void AddPeerVeils(PeerScene& scene, const QString& missing)
{
    for (int place = 0; place < missing.size(); ++place) {
        if (missing[place] != u'1')
            continue;
        const auto zone = scene.Tables().zones.constFind(ToothAt(place));
        if (zone == scene.Tables().zones.constEnd())
            continue;
        QGraphicsRectItem* veil = scene.Scene().addRect(zone->area, Qt::NoPen, QColor(255, 255, 255, VeilOpacity));
        veil->setZValue(VeilHeight);
    }
}

PeerWindow::PeerWindow(PeerScene& scene, const QSize& size)
{
    view_.setFrameShape(QFrame::NoFrame);
    view_.setViewportUpdateMode(QGraphicsView::MinimalViewportUpdate);
    view_.setOptimizationFlags(QGraphicsView::DontSavePainterState | QGraphicsView::DontAdjustForAntialiasing);
    view_.setScene(&scene.Scene());
    view_.resize(size);
    view_.centerOn(size.width() / 2.0, size.height() / 2.0);
    view_.show();
    QApplication::processEvents();
}

} // namespace vorn::bench

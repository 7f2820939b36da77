#pragma once

#include "bench/peer_scene.h"

#include <QGraphicsView>

class QGraphicsPixmapItem;
class QGraphicsRectItem;

namespace vorn::bench {

/// The symbols of a patient on a peer's scene, one pixmap item each. They go with this object, which has to go before
/// the scene is built anew.
///
/// What a program that uses the toolkit would do: the rows and the encoded pictures are at hand; a rebuild decodes each
/// picture that is used once and shares the pixmap among its items. Pictures that are scaled or turned are smoothed.
class PeerSymbols {
public:
    PeerSymbols(PeerScene& scene, const Database& database, int patient);
    ~PeerSymbols();
    PeerSymbols(const PeerSymbols&) = delete;
    PeerSymbols& operator=(const PeerSymbols&) = delete;

    void Rebuild();
    void Clear();
    /// In the rows' order.
    QGraphicsPixmapItem& Item(int index) const { return *items_.at(static_cast<std::size_t>(index)); }

private:
    void AddItem(const PeerPlacement& placement, const QPixmap& picture);

    PeerScene& scene_;
    QHash<int, QByteArray> catalogue_;
    std::vector<PeerPlacement> placements_;
    std::vector<QGraphicsPixmapItem*> items_;
};

/// Veils over missing teeth, one translucent box each. The scene owns them, so they go when it is built anew.
void AddPeerVeils(PeerScene& scene, const QString& missing);

/// A window on a peer's scene, the drawing's left top corner in its own, as fast as the toolkit gets: opaque, and
/// repainting only what has changed.
class PeerWindow {
public:
    PeerWindow(PeerScene& scene, const QSize& size);

    QWidget* Surface() const { return view_.viewport(); }
    /// A point of the scene on the surface.
    QPoint At(const QPointF& point) const { return view_.mapFromScene(point); }

private:
    QGraphicsView view_;
};

} // namespace vorn::bench

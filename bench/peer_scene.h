#pragma once

#include "bench/database.h"
#include "bench/peer_reading.h"

#include <QGraphicsScene>
#include <QHash>
#include <QImage>

#include <vector>

class QGraphicsPixmapItem;
class QGraphicsRectItem;
class QGraphicsSimpleTextItem;

namespace vorn::bench {

/// Where items lie between the drawing and the texts, which are at 0.
inline constexpr double DrawingHeight = -3;
inline constexpr double VeilHeight = -2;
inline constexpr double SymbolHeight = -1;

/// The same picture by the toolkit's own means: a graphics scene with a text item for each treatment, a box
/// behind it where it has a ground or a frame, and the drawing as a pixmap.
class PeerScene {
public:
    explicit PeerScene(Database& database);

    /// The patient with this many treatments, at natural size.
    void Show(int treatments);
    /// Any patient of the database, the same way.
    void ShowPatient(int patient);
    /// Drops rows and items.
    void Close();
    /// Reads the rows and builds the items.
    void Open();
    /// Builds the items anew from the rows.
    void Rebuild();
    void ClearItems();
    QImage Paint();
    void PostText(int ordinal, const QString& text);
    QImage PaintLabel(int ordinal);
    void ZoomTo(double scale);
    /// A scene that is painted whole is faster without an index, one that is painted in parts with one.
    void UseIndex(bool use);

    QGraphicsScene& Scene() { return scene_; }
    const PeerTables& Tables() const { return tables_; }
    double Scale() const { return scale_; }

private:
    struct Item {
        QGraphicsSimpleTextItem* text = nullptr;
        QGraphicsRectItem* box = nullptr;
        QRect bounds;
    };
    struct Look {
        QFont font;
        QColor text = Qt::black;
        QColor ground;
        QString note;
    };

    Look LookOf(const PeerRow& row) const;
    Look ClosedLook(const QString& id, Look look) const;
    QString HintOf(const PeerRow& row, const Look& look) const;
    QRect Place(const PeerRow& row, const QSize& size);
    void AddItem(const PeerRow& row);
    void AddBox(Item& item, const PeerRow& row, const QColor& ground);
    QImage Render(const QRect& part);

    QSqlDatabase connection_;
    PeerTables tables_;
    QFont font_;
    QGraphicsScene scene_;
    QGraphicsPixmapItem* drawing_ = nullptr;
    std::vector<PeerRow> rows_;
    std::vector<Item> items_; // in the rows' order
    QHash<QString, QRect> lastOnZone_;
    QRect area_;
    double scale_ = 1;
    int patient_ = 0;
};

} // namespace vorn::bench

#include "bench/peer_scene.h"

#include "bench/picture_part.h"
#include "platform/graphics/font.h"

#include <QDate>
#include <QGraphicsPixmapItem>
#include <QGraphicsRectItem>
#include <QGraphicsSimpleTextItem>
#include <QPainter>
#include <QPen>

namespace vorn::bench {

namespace {

enum Direction { LeftWards, UpWards, RightWards, DownWards };

const QColor FrameColor(100, 100, 100);

QString LocalDate(const QString& iso)
{
    return iso.isEmpty() ? QString() : QDate::fromString(iso, Qt::ISODate).toString(QStringLiteral("dd/MM/yyyy"));
}

} // namespace

PeerScene::PeerScene(Database& database)
    : connection_(database.Connection()), tables_(connection_), font_(TFont().Resolved())
{
    scene_.setItemIndexMethod(QGraphicsScene::NoIndex);
    scene_.setBackgroundBrush(tables_.surround);
}

void PeerScene::Show(int treatments)
{
    ShowPatient(Database::PatientWith(treatments));
}

void PeerScene::ShowPatient(int patient)
{
    ZoomTo(1);
    if (patient == patient_ && !items_.empty())
        return;
    patient_ = patient;
    Open();
}

void PeerScene::Close()
{
    ClearItems();
    rows_ = {};
}

void PeerScene::Open()
{
    rows_ = ReadPeerRows(connection_, patient_);
    Rebuild();
}

void PeerScene::ClearItems()
{
    scene_.clear();
    items_.clear();
    lastOnZone_.clear();
    drawing_ = nullptr;
}

void PeerScene::Rebuild()
{
    ClearItems();
    drawing_ = scene_.addPixmap(tables_.drawing);
    drawing_->setZValue(DrawingHeight);
    area_ = tables_.drawing.rect();
    items_.reserve(rows_.size());
    for (const PeerRow& row : rows_)
        AddItem(row);
    scene_.setSceneRect(area_);
}

PeerScene::Look PeerScene::LookOf(const PeerRow& row) const
{
    Look look{font_, Qt::black, {}, {}};
    if (const auto found = tables_.appearances.constFind(row.appearance); found != tables_.appearances.constEnd()) {
        look = ClosedLook(row.appearance, look);
        look.note = found->description;
    } else if (row.done == 1) {
        look = ClosedLook(QStringLiteral("FAT"), look);
    } else if (row.state == 1 || row.state == 2) {
        look = ClosedLook(row.state == 1 ? QStringLiteral("ESC") : QStringLiteral("NON"), look);
    } else {
        if (const QColor color = tables_.operatorColors.value(row.operatorCode); color.isValid())
            look.text = color;
        look.font = tables_.typeFonts.value(row.typeCode, font_);
    }
    if (row.color != 0)
        look.text = QColor(row.color & 0xFF, row.color >> 8 & 0xFF, row.color >> 16 & 0xFF);
    return look;
}

PeerScene::Look PeerScene::ClosedLook(const QString& id, Look look) const
{
    const PeerAppearance appearance = tables_.appearances.value(id);
    look.ground = appearance.ground.isValid() ? appearance.ground : QColor(240, 240, 240);
    if (appearance.text.isValid())
        look.text = appearance.text;
    if (appearance.bold)
        look.font.setBold(true);
    return look;
}

QString PeerScene::HintOf(const PeerRow& row, const Look& look) const
{
    const QString date = LocalDate(row.done == 1 ? row.finished : row.planned);
    QString hint = row.description + u' ' + date + u' ' + row.operatorCode;
    if (!look.note.isEmpty())
        hint += QLatin1Char('\n') + look.note;
    return hint;
}

/// Labels of a zone stack up from its anchor in its direction.
QRect PeerScene::Place(const PeerRow& row, const QSize& size)
{
    constexpr int gapLeft = 8;
    constexpr int gapRight = 4;
    constexpr int widestInStack = 39;
    if (row.x != 0 && row.y != 0)
        return {{row.x, row.y}, size};
    const auto found = tables_.zones.constFind(row.zone.toLower());
    const PeerZone& zone = found != tables_.zones.constEnd() ? *found : tables_.firstZone;
    QRect& last = lastOnZone_[zone.name];
    QPoint at = zone.anchor;
    if (!last.isNull()) {
        at = last.topLeft();
        if (zone.direction == LeftWards)
            at.rx() -= gapLeft;
        else if (zone.direction == RightWards)
            at.rx() += last.width() + gapRight;
        else if (zone.direction == DownWards)
            at.ry() += last.height();
    }
    if (zone.direction == LeftWards)
        at.rx() -= size.width();
    else if (zone.direction == UpWards)
        at.ry() -= size.height();
    const bool upright = zone.direction == UpWards || zone.direction == DownWards;
    const bool narrow = upright && zone.name != QLatin1String("GL");
    last = {at, QSize(narrow ? std::min(size.width(), widestInStack) : size.width(), size.height())};
    return last;
}

void PeerScene::AddItem(const PeerRow& row)
{
    constexpr int stateNotShown = 4;
    Item item;
    if (row.state != stateNotShown && row.parent == 0) {
        const Look look = LookOf(row);
        item.text = new QGraphicsSimpleTextItem;
        item.text->setFont(look.font); // while it is empty: one layout, not two
        item.text->setBrush(look.text);
        item.text->setText(row.code);
        const QSize size = item.text->boundingRect().size().toSize();
        item.bounds = Place(row, {size.width() + 1, size.height()});
        area_ |= item.bounds;
        if (look.ground.isValid() || row.done != 0)
            AddBox(item, row, look.ground);
        item.text->setPos(item.bounds.topLeft());
        item.text->setToolTip(HintOf(row, look));
        scene_.addItem(item.text);
    }
    items_.push_back(item);
}

void PeerScene::AddBox(Item& item, const PeerRow& row, const QColor& ground)
{
    QPen pen(Qt::NoPen);
    if (row.done == 1)
        pen = QPen(FrameColor, 1);
    else if (row.done == 2)
        pen = QPen(Qt::black, 1, Qt::DotLine);
    const int line = row.done != 0 ? 1 : 0; // lies on the edge of what it frames
    item.box = new QGraphicsRectItem(QRectF(0, 0, item.bounds.width() - line, item.bounds.height() - line));
    item.box->setPos(item.bounds.topLeft());
    item.box->setPen(pen);
    if (ground.isValid())
        item.box->setBrush(ground);
    scene_.addItem(item.box);
}

QImage PeerScene::Render(const QRect& part)
{
    QImage image(part.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    scene_.render(&painter, QRectF(QPointF(0, 0), part.size()), part, Qt::IgnoreAspectRatio);
    return image;
}

QImage PeerScene::Paint()
{
    const QRect drawing = QRectF(QPointF(0, 0), tables_.drawing.size() * scale_).toRect();
    return Render(PictureOf(scene_.sceneRect().toRect(), drawing));
}

void PeerScene::PostText(int ordinal, const QString& text)
{
    const auto index = static_cast<std::size_t>(ordinal);
    PeerRow& row = rows_[index];
    row = UpdatePeerRow(connection_, row.id, text);
    const Look look = LookOf(row);
    const Item& item = items_[index];
    item.text->setText(row.code);
    item.text->setToolTip(HintOf(row, look));
}

QImage PeerScene::PaintLabel(int ordinal)
{
    return Render(items_[static_cast<std::size_t>(ordinal)].bounds);
}

void PeerScene::ZoomTo(double scale)
{
    if (scale == scale_)
        return;
    scale_ = scale;
    drawing_->setScale(scale);
    for (const Item& item : items_) {
        if (!item.text)
            continue;
        const QPoint at(static_cast<int>(item.bounds.x() * scale), static_cast<int>(item.bounds.y() * scale));
        item.text->setPos(at);
        if (item.box)
            item.box->setPos(at);
    }
    const QRectF zoomed(QPointF(area_.topLeft()) * scale, QSizeF(area_.size()) * scale);
    scene_.setSceneRect(zoomed.toRect());
}

void PeerScene::UseIndex(bool use)
{
    scene_.setItemIndexMethod(use ? QGraphicsScene::BspTreeIndex : QGraphicsScene::NoIndex);
}

} // namespace vorn::bench

#include "bench/peer_reading.h"

#include "chart/font_text.h"
#include "demo/qt_strings.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <stdexcept>

namespace vorn::bench {

namespace {

const QString Columns = QStringLiteral("SELECT ID, PADRE, stato, Fatto, Colore, X, Y, Terapia, Descrizione, Dottore, "
                                       "Tipo, ASPETTO, Dente, Data, DataFatto FROM prestazioni ");

void Run(QSqlQuery& query, bool good)
{
    if (!good || !query.exec())
        throw std::runtime_error(query.lastError().text().toStdString());
}

QSqlQuery Select(const QSqlDatabase& database, const QString& statement, const QVariantList& values = {})
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    const bool good = query.prepare(statement);
    for (const QVariant& value : values)
        query.addBindValue(value);
    Run(query, good);
    return query;
}

PeerRow RowOf(const QSqlQuery& query)
{
    PeerRow row;
    int column = 0;
    for (int* number : {&row.id, &row.parent, &row.state, &row.done, &row.color, &row.x, &row.y})
        *number = query.value(column++).toInt();
    for (QString* text : {&row.code, &row.description, &row.operatorCode, &row.typeCode, &row.appearance, &row.zone,
             &row.planned, &row.finished})
        *text = query.value(column++).toString();
    return row;
}

/// Stored with red in the low byte; 0 is none.
QColor StoredColor(int color)
{
    return color == 0 ? QColor() : QColor(color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF);
}

PeerZone ZoneOf(const QString& line)
{
    const QStringList parts = line.split(u' ');
    const QPoint corner(parts.value(0).toInt(), parts.value(1).toInt());
    const QSize size(parts.value(2).toInt() - corner.x(), parts.value(3).toInt() - corner.y());
    return {
        QRect(corner, size), parts.value(4).toInt(), {parts.value(5).toInt(), parts.value(6).toInt()}, parts.value(7)};
}

} // namespace

PeerTables::PeerTables(const QSqlDatabase& database)
{
    QSqlQuery query
        = Select(database, QStringLiteral("SELECT ID, COLOREFONDO, COLORETESTO, BOLD, Descrizione FROM aspetto"));
    while (query.next())
        appearances.insert(query.value(0).toString(),
            {StoredColor(query.value(1).toInt()), StoredColor(query.value(2).toInt()),
                query.value(3).toString() == QLatin1String("1"), query.value(4).toString()});
    query = Select(database, QStringLiteral("SELECT Sigla, Colore FROM operatori"));
    while (query.next())
        operatorColors.insert(query.value(0).toString(), StoredColor(query.value(1).toInt()));
    query = Select(database, QStringLiteral("SELECT Sigla, Font FROM tipologie WHERE Font <> ''"));
    while (query.next()) {
        TFont font;
        LoadFontFromString(demo::FromQt(query.value(1).toString()), font);
        typeFonts.insert(query.value(0).toString(), font.Resolved());
    }
    query = Select(database, QStringLiteral("SELECT grafico_ie, Zone FROM sfondi ORDER BY ID LIMIT 1"));
    query.next();
    const QImage image = QImage::fromData(query.value(0).toByteArray()).convertToFormat(QImage::Format_RGB32);
    drawing = QPixmap::fromImage(image);
    surround = image.pixelColor(1, 1);
    for (const QString& line : QString::fromLatin1(query.value(1).toByteArray()).split("\r\n", Qt::SkipEmptyParts)) {
        const PeerZone zone = ZoneOf(line);
        if (zones.isEmpty())
            firstZone = zone;
        zones.insert(zone.name.toLower(), zone);
    }
}

std::vector<PeerRow> ReadPeerRows(const QSqlDatabase& database, int patient)
{
    QSqlQuery query = Select(database, Columns + QStringLiteral("WHERE PAZIENTE = ? ORDER BY ID"), {patient});
    std::vector<PeerRow> rows;
    while (query.next())
        rows.push_back(RowOf(query));
    return rows;
}

std::vector<PeerPlacement> ReadPeerPlacements(const QSqlDatabase& database, int patient)
{
    QSqlQuery query = Select(database,
        QStringLiteral("SELECT id, X, Y, Angle, Scale, Opacity FROM disegni WHERE PAZIENTE = ? ORDER BY simb_id"),
        {patient});
    std::vector<PeerPlacement> placements;
    while (query.next())
        placements.push_back({query.value(0).toInt(), {query.value(1).toInt(), query.value(2).toInt()},
            query.value(3).toInt(), query.value(4).toInt(), query.value(5).toInt()});
    return placements;
}

QHash<int, QByteArray> ReadPeerCatalogue(const QSqlDatabase& database)
{
    QSqlQuery query = Select(database, QStringLiteral("SELECT SIMB_ID, Grafico_ie FROM simboli"));
    QHash<int, QByteArray> pictures;
    while (query.next())
        pictures.insert(query.value(0).toInt(), query.value(1).toByteArray());
    return pictures;
}

QString ReadMissing(const QSqlDatabase& database, int patient)
{
    QSqlQuery query = Select(database, QStringLiteral("SELECT Mancanti FROM cartella WHERE PAZIENTE = ?"), {patient});
    return query.next() ? query.value(0).toString() : QString();
}

PeerRow UpdatePeerRow(const QSqlDatabase& database, int id, const QString& code)
{
    QSqlQuery update(database);
    const bool prepared = update.prepare(QStringLiteral("UPDATE prestazioni SET Terapia = ? WHERE ID = ?"));
    update.addBindValue(code);
    update.addBindValue(id);
    Run(update, prepared);

    QSqlQuery query = Select(database, Columns + QStringLiteral("WHERE ID = ?"), {id});
    query.next();
    return RowOf(query);
}

} // namespace vorn::bench

#pragma once

#include <QColor>
#include <QFont>
#include <QHash>
#include <QPixmap>
#include <QSqlDatabase>
#include <QString>

#include <vector>

namespace vorn::bench {

/// One treatment as the peer keeps it: the columns that its scene shows.
struct PeerRow {
    int id = 0;
    int parent = 0;
    int state = 0;
    int done = 0;
    int color = 0;
    int x = 0;
    int y = 0;
    QString code, description, operatorCode, typeCode, appearance, zone;
    QString planned, finished; ///< dates as ISO text
};

struct PeerAppearance {
    QColor ground, text; ///< invalid when not set
    bool bold = false;
    QString description;
};

struct PeerZone {
    QRect area;
    int direction = 0;
    QPoint anchor;
    QString name;
};

/// One symbol placement as the peer keeps it.
struct PeerPlacement {
    int symbol = 0;
    QPoint corner;
    int angle = 0;
    int scale = 0;
    int opacity = 0;
};

/// What stays the same from patient to patient.
struct PeerTables {
    explicit PeerTables(const QSqlDatabase& database);

    QHash<QString, PeerAppearance> appearances;
    QHash<QString, QColor> operatorColors;
    QHash<QString, QFont> typeFonts;
    QHash<QString, PeerZone> zones; ///< by lower-case name
    PeerZone firstZone;
    QPixmap drawing;
    QColor surround;
};

/// The rows of a patient, read forward only.
std::vector<PeerRow> ReadPeerRows(const QSqlDatabase& database, int patient);
std::vector<PeerPlacement> ReadPeerPlacements(const QSqlDatabase& database, int patient);
/// The encoded pictures of the symbol catalogue by the symbols' numbers.
QHash<int, QByteArray> ReadPeerCatalogue(const QSqlDatabase& database);
/// Which teeth the patient's chart row calls missing: '1' in the place of each.
QString ReadMissing(const QSqlDatabase& database, int patient);
/// Writes the code of one treatment and reads its row anew.
PeerRow UpdatePeerRow(const QSqlDatabase& database, int id, const QString& code);

} // namespace vorn::bench

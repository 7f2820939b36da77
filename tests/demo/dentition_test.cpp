#include "demo/dentition/dentition.h"

#include <gtest/gtest.h>

#include <QMap>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <cstdlib>

namespace vorn::demo {
namespace {

/// Whether the pixel is tooth: enamel, roots and their outlines are yellowish, while gums, ground and print
/// aren't.
bool IsTooth(QRgb pixel)
{
    return qGreen(pixel) - qBlue(pixel) > 9;
}

class Dentition : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        image = new QImage(RenderDentition());
        zones = new QMap<QString, ZoneShape>;
        for (const ZoneShape& zone : Zones())
            zones->insert(zone.name, zone);
    }
    static void TearDownTestSuite()
    {
        delete image;
        delete zones;
    }
    static ZoneShape Zone(int number) { return zones->value(QString::number(number)); }

    static inline QImage* image = nullptr;
    static inline QMap<QString, ZoneShape>* zones = nullptr;
};

TEST_F(Dentition, EachToothZoneIsTightAroundPaintedPixels)
{
    for (const PlacedTooth& tooth : PlacedTeeth()) {
        SCOPED_TRACE(tooth.number.Name().toStdString());
        const QRect rect = tooth.rect;
        int painted = 0;
        QRect touched;
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x) {
                if (!IsTooth(image->pixel(x, y)))
                    continue;
                ++painted;
                touched |= QRect(x, y, 1, 1);
            }
        }
        EXPECT_GT(painted, rect.width() * rect.height() / 4);
        // The rectangle reaches no further than the paint, give or take the soft outermost pixels.
        for (const int slack : {touched.left() - rect.left(), touched.top() - rect.top(),
                 rect.right() - touched.right(), rect.bottom() - touched.bottom()})
            EXPECT_LE(slack, 2);
    }
}

TEST_F(Dentition, ZonesNeitherOverlapNorLeaveThePicture)
{
    const QRect picture(QPoint(0, 0), PictureSize());
    for (const ZoneShape& a : *zones) {
        EXPECT_TRUE(picture.contains(a.rect)) << a.name.toStdString();
        EXPECT_TRUE(picture.contains(a.anchor)) << a.name.toStdString();
        for (const ZoneShape& b : *zones) {
            if (a.name < b.name) {
                EXPECT_FALSE(a.rect.intersects(b.rect)) << a.name.toStdString() << " and " << b.name.toStdString();
            }
        }
    }
}

TEST_F(Dentition, EdgeIsPlainBackground)
{
    const QRgb ground = image->pixel(1, 1);
    for (int x = 0; x < image->width(); ++x) {
        ASSERT_EQ(image->pixel(x, 0), ground);
        ASSERT_EQ(image->pixel(x, image->height() - 1), ground);
    }
    for (int y = 0; y < image->height(); ++y) {
        ASSERT_EQ(image->pixel(0, y), ground);
        ASSERT_EQ(image->pixel(image->width() - 1, y), ground);
    }
}

TEST_F(Dentition, RightAndLeftMirrorEachOther)
{
    const int width = PictureSize().width();
    for (const PlacedTooth& tooth : PlacedTeeth()) {
        if (!tooth.number.PatientRight())
            continue;
        SCOPED_TRACE(tooth.number.Name().toStdString());
        const int mirrored[] = {0, 2, 1, 4, 3, 6, 5, 8, 7};
        const QRect rect = tooth.rect;
        const QRect other = Zone(mirrored[tooth.number.quadrant] * 10 + tooth.number.position).rect;
        EXPECT_EQ(other, QRect(width - rect.left() - rect.width(), rect.top(), rect.width(), rect.height()));
        qint64 difference = 0;
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x) {
                const QRgb here = image->pixel(x, y);
                const QRgb there = image->pixel(width - 1 - x, y);
                difference += std::abs(qGreen(here) - qGreen(there));
            }
        }
        EXPECT_LE(difference, 3 * rect.width() * rect.height());
    }
}

TEST_F(Dentition, LabelsRunAwayFromTheTeethAndInEveryDirection)
{
    QMap<int, int> perDirection;
    for (const ZoneShape& zone : *zones) {
        ++perDirection[zone.direction];
        const QRect usualLabel(zone.direction == 0 ? zone.anchor.x() - 39 : zone.anchor.x(),
            zone.direction == 1 ? zone.anchor.y() - 13 : zone.anchor.y(), 39, 13);
        for (const ZoneShape& other : *zones)
            EXPECT_FALSE(other.rect.intersects(usualLabel)) << zone.name.toStdString() << other.name.toStdString();
    }
    EXPECT_EQ(perDirection, (QMap<int, int>{{0, 1}, {1, 26}, {2, 1}, {3, 27}}));
}

TEST_F(Dentition, FirstLabelsOfNeighboursLeaveEachOtherRoom)
{
    QMap<int, QList<int>> starts;
    for (const PlacedTooth& tooth : PlacedTeeth()) {
        const int row = (tooth.number.Upper() ? 0 : 1) + (tooth.number.Deciduous() ? 2 : 0);
        starts[row] += zones->value(tooth.number.Name()).anchor.x();
    }
    for (const QList<int>& row : starts) {
        for (qsizetype i = 1; i < row.size(); ++i)
            EXPECT_GE(row[i] - row[i - 1], 42);
    }
}

TEST_F(Dentition, MilkTeethStandOnTheBitingSideOfTheirSuccessors)
{
    for (const PlacedTooth& tooth : PlacedTeeth()) {
        if (!tooth.number.Deciduous())
            continue;
        SCOPED_TRACE(tooth.number.Name().toStdString());
        const QRect successor = Zone((tooth.number.quadrant - 4) * 10 + tooth.number.position).rect;
        EXPECT_LE(std::abs(tooth.rect.center().x() - successor.center().x()), 6);
        EXPECT_LT(tooth.rect.height(), successor.height());
        if (tooth.number.Upper()) {
            EXPECT_GT(tooth.rect.top(), successor.bottom());
        } else {
            EXPECT_LT(tooth.rect.bottom(), successor.top());
        }
    }
}

TEST_F(Dentition, AnatomyKeepsItsProportions)
{
    // Canines are the longest teeth, wisdom teeth shorter than the first molars, lower central incisors
    // narrowest.
    for (const int quadrant : {1, 2, 3, 4}) {
        for (const int position : {1, 2, 4, 5, 6, 7, 8})
            EXPECT_GT(Zone(quadrant * 10 + 3).rect.height(), Zone(quadrant * 10 + position).rect.height());
        EXPECT_LT(Zone(quadrant * 10 + 8).rect.height(), Zone(quadrant * 10 + 6).rect.height());
    }
    for (int position = 2; position <= 8; ++position)
        EXPECT_LT(Zone(41).rect.width(), Zone(40 + position).rect.width());
}

TEST(DentitionText, ZoneTextReadsBackAsTheZones)
{
    const QStringList lines = ZoneText().split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    const std::vector<ZoneShape> zones = Zones();
    ASSERT_EQ(static_cast<size_t>(lines.size()), zones.size());
    EXPECT_EQ(zones.front().name, QStringLiteral("GL"));
    for (size_t i = 0; i < zones.size(); ++i) {
        const ZoneShape& zone = zones[i];
        const QStringList fields = lines[static_cast<qsizetype>(i)].split(QLatin1Char(' '));
        ASSERT_EQ(fields.size(), 8) << zone.name.toStdString();
        auto number = [&](int field) { return fields[field].toInt(); };
        EXPECT_EQ(QRect(QPoint(number(0), number(1)), QPoint(number(2) - 1, number(3) - 1)), zone.rect);
        EXPECT_EQ(number(4), zone.direction);
        EXPECT_EQ(QPoint(number(5), number(6)), zone.anchor);
        EXPECT_EQ(fields[7], zone.name);
    }
}

TEST(DentitionText, NamesStandInFiveRowsAndEachHasItsZone)
{
    EXPECT_EQ(ZoneNameText(),
        QStringLiteral("18 17 16 15 14 13 12 11 21 22 23 24 25 26 27 28\r\n"
                       "48 47 46 45 44 43 42 41 31 32 33 34 35 36 37 38\r\n"
                       "GL AS AI\r\n"
                       "55 54 53 52 51 61 62 63 64 65\r\n"
                       "85 84 83 82 81 71 72 73 74 75\r\n"));
    QStringList named = ZoneNameText().simplified().split(QLatin1Char(' '));
    QStringList zoned;
    for (const ZoneShape& zone : Zones())
        zoned += zone.name;
    named.sort();
    zoned.sort();
    EXPECT_EQ(zoned, named);
    EXPECT_EQ(QSet<QString>(zoned.begin(), zoned.end()).size(), 55);
}

TEST(DentitionScale, ALargerPictureShowsTheSameDrawing)
{
    const QImage large = RenderDentition(2.0);
    EXPECT_EQ(large.size(), PictureSize() * 2);
    const QPoint inTooth = PlacedTeeth().front().rect.center();
    EXPECT_TRUE(IsTooth(large.pixel(inTooth * 2)));
}

} // namespace
} // namespace vorn::demo

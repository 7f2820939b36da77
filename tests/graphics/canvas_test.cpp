#include "platform/graphics/canvas.h"
#include "tests/support/pixels.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <climits>

namespace vorn {

using test::Paper;
using test::Rows;

namespace {

using enum TPenStyle;
constexpr TBrush Clear{clRed, TBrushStyle::bsClear};

void Line(TCanvas& canvas, std::initializer_list<TPoint> points)
{
    canvas.Polyline(std::span(points.begin(), points.size()));
}

struct DrawingCase {
    const char* name;
    TPen pen;
    TBrush brush;
    void (*draw)(TCanvas&);
    const char* expected; // 6 x 6
};

const DrawingCase drawingCases[] = {
    {"filled rectangle", {}, {clRed},
        [](TCanvas& c) {
            c.FillRect({1, 1, 3, 4});
        },
        "......\n.rr...\n.rr...\n.rr...\n......\n......\n"},
    {"clear brush", {}, Clear,
        [](TCanvas& c) {
            c.FillRect({1, 1, 3, 4});
        },
        "......\n......\n......\n......\n......\n......\n"},
    {"brush without colour", {}, {clNone},
        [](TCanvas& c) {
            c.FillRect({0, 0, 6, 6});
        },
        "......\n......\n......\n......\n......\n......\n"},
    {"outline and inside", {}, {clRed},
        [](TCanvas& c) {
            c.Rectangle({1, 1, 5, 4});
        },
        "......\n.####.\n.#rr#.\n.####.\n......\n......\n"},
    {"square on a point", {clBlue}, {clBlue},
        [](TCanvas& c) {
            c.Rectangle({0, 0, 5, 5});
        },
        "bbbbb.\nbbbbb.\nbbbbb.\nbbbbb.\nbbbbb.\n......\n"},
    {"rectangle without outline", {clBlack, psClear}, {clRed},
        [](TCanvas& c) {
            c.Rectangle({0, 0, 2, 2});
        },
        "rr....\nrr....\n......\n......\n......\n......\n"},
    {"wide outline stays inside", {clBlack, psSolid, 2}, Clear,
        [](TCanvas& c) {
            c.Rectangle({0, 0, 6, 6});
        },
        "######\n######\n##..##\n##..##\n######\n######\n"},
    {"dotted outline", {clBlack, psDot}, Clear,
        [](TCanvas& c) {
            c.Rectangle({1, 0, 6, 5});
        },
        ".#.#.#\n......\n.#...#\n......\n.#.#.#\n......\n"},
    {"frame ignores the brush's style", {}, Clear,
        [](TCanvas& c) {
            c.FrameRect({0, 0, 4, 3});
        },
        "rrrr..\nr..r..\nrrrr..\n......\n......\n......\n"},
    {"level polyline has its last point", {}, {},
        [](TCanvas& c) {
            Line(c, {{1, 1}, {4, 1}, {4, 3}});
        },
        "......\n.####.\n....#.\n....#.\n......\n......\n"},
    {"slanted polyline", {}, {},
        [](TCanvas& c) {
            Line(c, {{0, 0}, {3, 3}, {5, 1}});
        },
        "#.....\n.#...#\n..#.#.\n...#..\n......\n......\n"},
    {"dotted slanted line", {clBlack, psDot}, {},
        [](TCanvas& c) {
            Line(c, {{0, 0}, {4, 4}});
        },
        "#.....\n......\n..#...\n......\n....#.\n......\n"},
    {"line to leaves the end out", {}, {}, [](TCanvas& c) { c.MoveTo(0, 0), c.LineTo(3, 0), c.LineTo(3, 2); },
        "####..\n...#..\n......\n......\n......\n......\n"},
    {"slanted line to", {}, {}, [](TCanvas& c) { c.MoveTo(4, 4), c.LineTo(1, 1); },
        "......\n......\n..#...\n...#..\n....#.\n......\n"},
    {"inverted", {}, {},
        [](TCanvas& c) {
            c.InvertRect({1, 1, 3, 3}), c.InvertRect({2, 2, 4, 4});
        },
        "......\n.##...\n.#.#..\n..##..\n......\n......\n"},
    {"far out", {}, {clRed},
        [](TCanvas& c) {
            c.Rectangle({INT_MIN, INT_MIN, INT_MAX, 2});
        },
        "rrrrrr\n######\n......\n......\n......\n......\n"},
    {"turned round", {}, {},
        [](TCanvas& c) {
            c.Rectangle({5, 5, 1, 1});
        },
        "......\n......\n......\n......\n......\n......\n"},
};

void Draw(TCanvas& canvas, const DrawingCase& c)
{
    canvas.Pen = c.pen;
    canvas.Brush = c.brush;
    c.draw(canvas);
}

} // namespace

TEST(Canvas, DrawsWholePixels)
{
    for (const DrawingCase& testCase : drawingCases) {
        QImage image = Paper(6, 6);
        TCanvas canvas(image);
        Draw(canvas, testCase);
        canvas.End();
        EXPECT_EQ(Rows(image), testCase.expected) << testCase.name;
    }
}

TEST(Canvas, DrawsAlikeThroughAShiftedAndSmoothedPainter)
{
    for (const DrawingCase& testCase : drawingCases) {
        QImage image = Paper(9, 9);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(3, 2);
        painter.setClipRect(0, 0, 6, 6);
        TCanvas canvas(painter);
        Draw(canvas, testCase);
        painter.end();
        EXPECT_EQ(Rows(image.copy(3, 2, 6, 6)), testCase.expected) << testCase.name;
    }
}

TEST(Canvas, RaisedFrameGoesInwardAndLeavesTheTools)
{
    QImage image = Paper(6, 6);
    TCanvas canvas(image);
    canvas.Pen = {clRed, TPenStyle::psDot, 3};
    canvas.Brush = {clRed, TBrushStyle::bsClear};
    TRect r{0, 0, 6, 6};
    Frame3D(canvas, r, clBlue, clBlack, 2);
    canvas.End();
    EXPECT_EQ(Rows(image), "bbbbb#\nbbbb##\nbb..##\nbb..##\nb#####\n######\n");
    EXPECT_EQ(r, (TRect{2, 2, 4, 4}));
    EXPECT_EQ(canvas.Pen.Style, TPenStyle::psDot);
    EXPECT_EQ(canvas.Pen.Width, 3);
    EXPECT_EQ(canvas.Brush.Color, clRed);
    EXPECT_EQ(canvas.Brush.Style, TBrushStyle::bsClear);
}

} // namespace vorn

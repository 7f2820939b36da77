#include "platform/graphics/canvas.h"
#include "tests/support/pixels.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <climits>
#include <functional>

namespace vorn {

using test::Paper;
using test::Rows;

namespace {

struct DrawingCase {
    const char* name;
    std::function<void(TCanvas&)> draw;
    const char* expected; // 6 x 6
};

void Line(TCanvas& canvas, std::initializer_list<TPoint> points)
{
    canvas.Polyline(std::span(points.begin(), points.size()));
}

const DrawingCase drawingCases[] = {
    {"filled rectangle",
        [](TCanvas& c) {
            c.Brush.Color = clRed;
            c.FillRect({1, 1, 3, 4});
        },
        "......\n.rr...\n.rr...\n.rr...\n......\n......\n"},
    {"clear brush",
        [](TCanvas& c) {
            c.Brush = {clRed, TBrushStyle::bsClear};
            c.FillRect({1, 1, 3, 4});
        },
        "......\n......\n......\n......\n......\n......\n"},
    {"brush without colour",
        [](TCanvas& c) {
            c.Brush.Color = clNone;
            c.FillRect({0, 0, 6, 6});
        },
        "......\n......\n......\n......\n......\n......\n"},
    {"outline and inside",
        [](TCanvas& c) {
            c.Brush.Color = clRed;
            c.Rectangle({1, 1, 5, 4});
        },
        "......\n.####.\n.#rr#.\n.####.\n......\n......\n"},
    {"square on a point",
        [](TCanvas& c) {
            c.Pen.Color = clBlue;
            c.Brush.Color = clBlue;
            c.Rectangle({0, 0, 5, 5});
        },
        "bbbbb.\nbbbbb.\nbbbbb.\nbbbbb.\nbbbbb.\n......\n"},
    {"rectangle without outline",
        [](TCanvas& c) {
            c.Pen.Style = TPenStyle::psClear;
            c.Brush.Color = clRed;
            c.Rectangle({0, 0, 2, 2});
        },
        "rr....\nrr....\n......\n......\n......\n......\n"},
    {"wide outline stays inside",
        [](TCanvas& c) {
            c.Pen.Width = 2;
            c.Brush.Style = TBrushStyle::bsClear;
            c.Rectangle({0, 0, 6, 6});
        },
        "######\n######\n##..##\n##..##\n######\n######\n"},
    {"dotted outline",
        [](TCanvas& c) {
            c.Pen.Style = TPenStyle::psDot;
            c.Brush.Style = TBrushStyle::bsClear;
            c.Rectangle({1, 0, 6, 5});
        },
        ".#.#.#\n......\n.#...#\n......\n.#.#.#\n......\n"},
    {"frame ignores the brush's style",
        [](TCanvas& c) {
            c.Brush = {clRed, TBrushStyle::bsClear};
            c.FrameRect({0, 0, 4, 3});
        },
        "rrrr..\nr..r..\nrrrr..\n......\n......\n......\n"},
    {"level polyline has its last point",
        [](TCanvas& c) {
            Line(c, {{1, 1}, {4, 1}, {4, 3}});
        },
        "......\n.####.\n....#.\n....#.\n......\n......\n"},
    {"slanted polyline",
        [](TCanvas& c) {
            Line(c, {{0, 0}, {3, 3}, {5, 1}});
        },
        "#.....\n.#...#\n..#.#.\n...#..\n......\n......\n"},
    {"dotted slanted line",
        [](TCanvas& c) {
            c.Pen.Style = TPenStyle::psDot;
            Line(c, {{0, 0}, {4, 4}});
        },
        "#.....\n......\n..#...\n......\n....#.\n......\n"},
    {"a point is no line",
        [](TCanvas& c) {
            Line(c, {{2, 2}});
        },
        "......\n......\n......\n......\n......\n......\n"},
    {"line to leaves the end out",
        [](TCanvas& c) {
            c.MoveTo(0, 0);
            c.LineTo(3, 0);
            c.LineTo(3, 2);
            c.MoveTo(5, 5);
            c.LineTo(2, 5);
        },
        "####..\n...#..\n......\n......\n......\n...###\n"},
    {"slanted line to",
        [](TCanvas& c) {
            c.MoveTo(4, 4);
            c.LineTo(1, 1);
        },
        "......\n......\n..#...\n...#..\n....#.\n......\n"},
    {"inverted",
        [](TCanvas& c) {
            c.InvertRect({1, 1, 3, 3});
            c.InvertRect({2, 2, 4, 4});
        },
        "......\n.##...\n.#.#..\n..##..\n......\n......\n"},
    {"far out coordinates",
        [](TCanvas& c) {
            c.Brush.Color = clRed;
            c.Rectangle({INT_MIN, INT_MIN, INT_MAX, 2});
        },
        "rrrrrr\n######\n......\n......\n......\n......\n"},
    {"turned round rectangle",
        [](TCanvas& c) {
            c.Rectangle({5, 5, 1, 1});
        },
        "......\n......\n......\n......\n......\n......\n"},
};

} // namespace

TEST(Canvas, DrawsWholePixels)
{
    for (const DrawingCase& testCase : drawingCases) {
        QImage image = Paper(6, 6);
        TCanvas canvas(image);
        testCase.draw(canvas);
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
        testCase.draw(canvas);
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

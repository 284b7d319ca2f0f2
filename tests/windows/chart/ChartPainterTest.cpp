#include "ui/win32/chart/ChartPainter.h"

#include <gtest/gtest.h>

#include <cmath>

#include "windows/chart/Canvas.h"
#include "windows/chart/ChartSamples.h"

namespace kestrel::ui::win32 {
namespace {

using test::Canvas;
constexpr COLORREF kPaper = RGB(255, 255, 255);

TEST(ChartPainter, FillsAndOutlinesEachBarInItsPlaceAtEveryScale) {
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        const ChartDrawing drawing = test::SampleDrawing();
        const auto at = [&](int units) { return static_cast<int>(std::lround(units * scale)); };
        const Canvas canvas(at(drawing.width) + 20, at(drawing.height) + 20);
        PaintChart(canvas.Dc(), drawing, scale);
        ASSERT_EQ(drawing.bars.size(), 3u);
        for (const ChartBar& bar : drawing.bars) {
            const int left = at(bar.bounds.x), right = at(bar.bounds.x + bar.bounds.width);
            const int top = at(bar.bounds.y), bottom = at(bar.bounds.y + bar.bounds.height);
            const int middle = (top + bottom) / 2;
            for (const int x : {left + 1, (left + right) / 2, right - 1})
                for (const int y : {top + 1, middle, bottom - 1})
                    EXPECT_EQ(canvas.At(x, y), RGB(255, 0, 0)) << x << "," << y;
            // The zero line covers the edge that the bar grows from.
            const int end =
                bar.hint.find('-', bar.hint.find(':')) != std::string::npos ? left : right;
            EXPECT_EQ(canvas.At(end, middle), RGB(0, 0, 0));
            EXPECT_EQ(canvas.At((left + right) / 2, bottom), RGB(0, 0, 0));
            EXPECT_EQ(canvas.At((left + right) / 2, bottom + 1), kPaper);
            EXPECT_EQ(canvas.At((left + right) / 2, top - 1), kPaper);
        }
        EXPECT_EQ(canvas.At(at(drawing.width) - 1, at(drawing.height) - 1), kPaper);
        EXPECT_EQ(canvas.At(at(drawing.width), 0), Canvas::kUntouched);
        EXPECT_EQ(canvas.At(0, at(drawing.height)), Canvas::kUntouched);
    }
}

TEST(ChartPainter, HairlinesAreOnePixelAndEndWhereTheyShould) {
    ChartDrawing drawing;
    drawing.width = drawing.height = 100;
    drawing.lines = {{10, 20, 40, 20, 0x010203}, {60, 20, 60, 50, 0x010203}};
    for (const double scale : {1.0, 1.5}) {
        SCOPED_TRACE(scale);
        const auto at = [&](int units) { return static_cast<int>(std::lround(units * scale)); };
        const Canvas canvas(200, 200);
        PaintChart(canvas.Dc(), drawing, scale);
        const struct {
            int x, y;
            bool inked;
        } points[] = {
            {at(10) - 1, at(20), false}, {at(10), at(20), true},      {at(40), at(20), true},
            {at(40) + 1, at(20), false}, {at(25), at(20) - 1, false}, {at(25), at(20) + 1, false},
            {at(60), at(20) - 1, false}, {at(60), at(20), true},      {at(60), at(50), true},
            {at(60), at(50) + 1, false}, {at(60) + 1, at(35), false},
        };
        for (const auto& point : points)
            EXPECT_EQ(canvas.At(point.x, point.y) == RGB(3, 2, 1), point.inked)
                << point.x << "," << point.y;
    }
}

TEST(ChartPainter, DashesAndCurvesReachFromEndToEnd) {
    ChartDrawing drawing;
    drawing.width = drawing.height = 100;
    drawing.lines = {{10, 20, 90, 20, 0x0000FF, true}};
    drawing.curves = {{{{10, 80}, {50, 60}, {90, 80}}, 0xFF0000}};
    const Canvas canvas(100, 100);
    PaintChart(canvas.Dc(), drawing, 1);
    int inked = 0;
    for (int x = 10; x < 90; ++x) inked += canvas.At(x, 20) == RGB(255, 0, 0);
    EXPECT_GT(inked, 30);
    EXPECT_LT(inked, 60);
    const auto ink = canvas.Inked(55, 85, 100);
    EXPECT_NEAR(ink.left, 10, 1);
    EXPECT_NEAR(ink.right, 90, 1);
    EXPECT_NE(canvas.At(50, 60), kPaper);
}

TEST(ChartPainter, WhatReachesOutOfTheDrawingIsCutOff) {
    ChartDrawing drawing;
    drawing.width = drawing.height = 50;
    drawing.bars = {{{40, 10, 30, 30}, 0x0000FF, 0, true, true, {}}};
    const Canvas canvas(100, 100);
    PaintChart(canvas.Dc(), drawing, 1.5);
    EXPECT_EQ(canvas.At(74, 30), RGB(255, 0, 0));
    EXPECT_EQ(canvas.At(75, 30), Canvas::kUntouched);
}

TEST(ChartPainter, TextsStandOnTheirBaselineAndKeepTheirSide) {
    for (const ChartAlign align : {ChartAlign::Left, ChartAlign::Centre, ChartAlign::Right}) {
        SCOPED_TRACE(static_cast<int>(align));
        ChartDrawing drawing;
        drawing.width = 300;
        drawing.height = 60;
        ChartText text;
        text.text = "HHHH";
        text.x = 150;
        text.baseline = 40;
        text.size = 20;
        text.align = align;
        drawing.texts = {text};
        const Canvas canvas(300, 60);
        PaintChart(canvas.Dc(), drawing, 1);
        const auto ink = canvas.Inked(0, 60, 300);
        const int width = ink.right - ink.left;
        EXPECT_NEAR(width, 4 * 14, 6);
        const int start = align == ChartAlign::Left     ? 150
                          : align == ChartAlign::Centre ? 150 - width / 2
                                                        : 150 - width;
        EXPECT_NEAR(ink.left, start, 3);
        EXPECT_LT(canvas.Inked(40, 60, 300).right, 0) << "nothing hangs below the baseline";
        EXPECT_GT(canvas.Inked(38, 40, 300).right, 0);
    }
}

}  // namespace
}  // namespace kestrel::ui::win32

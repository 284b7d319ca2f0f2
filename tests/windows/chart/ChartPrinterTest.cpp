#include "ui/win32/chart/ChartPrinter.h"

#include <gtest/gtest.h>

#include "base/Errors.h"
#include "windows/chart/Canvas.h"
#include "windows/chart/ChartSamples.h"
#include "windows/chart/PostScriptPrinter.h"

namespace kestrel::ui::win32 {
namespace {

TEST(ChartPrinter, TheDrawingKeepsItsShapeWithinTheMargins) {
    const test::PostScriptPrinter printer;
    const kestrel::win32::OwnDc dc(CreateDCW(L"WINSPOOL", printer.Name(), nullptr, nullptr));
    const int half = GetDeviceCaps(dc.Get(), LOGPIXELSX) / 2;
    const int offset = GetDeviceCaps(dc.Get(), PHYSICALOFFSETX);
    const struct {
        const char* name;
        int width, height;
        bool fillsWidth;
    } rows[] = {{"wide", 600, 300, true}, {"high", 300, 900, false}, {"tiny", 30, 20, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const RECT place = PlaceOnPage(dc.Get(), test::SampleDrawing(row.width, row.height));
        const int width = place.right - place.left, height = place.bottom - place.top;
        EXPECT_NEAR(static_cast<double>(width) / height,
                    static_cast<double>(row.width) / row.height, 0.01);
        EXPECT_EQ(place.left, half - offset);
        EXPECT_EQ(place.top, half - GetDeviceCaps(dc.Get(), PHYSICALOFFSETY));
        const int right = GetDeviceCaps(dc.Get(), PHYSICALWIDTH) - half - offset;
        const int bottom = GetDeviceCaps(dc.Get(), PHYSICALHEIGHT) - half -
                           GetDeviceCaps(dc.Get(), PHYSICALOFFSETY);
        EXPECT_NEAR(row.fillsWidth ? place.right : place.bottom, row.fillsWidth ? right : bottom,
                    2);
        EXPECT_LE(place.right, right + 1);
        EXPECT_LE(place.bottom, bottom + 1);
    }
}

TEST(ChartPrinter, WhatTakesNoDocumentsIsToldToTheUser) {
    const test::Canvas noPrinter(10, 10);
    EXPECT_THROW(PrintChart(noPrinter.Dc(), test::SampleDrawing(), "Ferry terminal"), DataError);
}

}  // namespace
}  // namespace kestrel::ui::win32

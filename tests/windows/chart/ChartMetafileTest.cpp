#include "ui/win32/chart/ChartMetafile.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "platform/win32/WideText.h"
#include "windows/chart/Canvas.h"
#include "windows/chart/ChartSamples.h"

namespace kestrel::ui::win32 {
namespace {

struct Contents {
    int rectangles = 0;
    std::vector<std::string> texts;
};

int CALLBACK Collect(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM into) {
    auto& contents = *reinterpret_cast<Contents*>(into);
    if (record->iType == EMR_RECTANGLE) ++contents.rectangles;
    if (record->iType == EMR_EXTTEXTOUTW) {
        const EMRTEXT& text = reinterpret_cast<const EMREXTTEXTOUTW*>(record)->emrtext;
        const auto* const letters = reinterpret_cast<const wchar_t*>(
            reinterpret_cast<const char*>(record) + text.offString);
        contents.texts.push_back(kestrel::win32::Utf8({letters, text.nChars}));
    }
    return 1;
}

Contents ContentsOf(HENHMETAFILE file) {
    Contents contents;
    EnumEnhMetaFile(nullptr, file, Collect, &contents, nullptr);
    return contents;
}

TEST(ChartMetafile, TheClipboardHoldsEveryBarAndTextInTheChartsOwnSize) {
    const ChartDrawing drawing = test::SampleDrawing(600, 300);
    CopyChart(drawing);

    ASSERT_TRUE(OpenClipboard(nullptr));
    const auto file = static_cast<HENHMETAFILE>(GetClipboardData(CF_ENHMETAFILE));
    ASSERT_TRUE(file);
    ENHMETAHEADER header{};
    ASSERT_NE(GetEnhMetaFileHeader(file, sizeof header, &header), 0u);
    const Contents contents = ContentsOf(file);
    wchar_t about[200]{};
    GetEnhMetaFileDescriptionW(file, 200, about);
    const std::wstring program = about;
    const std::wstring title = about + program.size() + 1;
    CloseClipboard();

    EXPECT_EQ(contents.rectangles, 3);
    std::vector<std::string> texts;
    for (const ChartText& text : drawing.texts) texts.push_back(text.text);
    EXPECT_EQ(contents.texts, texts);
    EXPECT_EQ(title, L"Risk Factors Driving Project Schedule - Ferry terminal");
    // 600 x 300 units of 1/96 inch, in hundredths of a millimetre.
    EXPECT_NEAR(static_cast<double>(header.rclFrame.right - header.rclFrame.left), 15875, 2);
    EXPECT_NEAR(static_cast<double>(header.rclFrame.bottom - header.rclFrame.top), 7938, 2);
}

TEST(ChartMetafile, PlayedEnlargedItFillsItsFrameAndNoMore) {
    const ChartDrawing drawing = test::SampleDrawing(600, 300);
    const Metafile file = RecordChart(drawing);
    const test::Canvas canvas(1240, 640);
    const RECT frame{20, 20, 1220, 620};  // twice the size
    ASSERT_TRUE(PlayEnhMetaFile(canvas.Dc(), file.Get(), &frame));
    EXPECT_EQ(canvas.At(18, 300), test::Canvas::kUntouched);
    EXPECT_EQ(canvas.At(1222, 300), test::Canvas::kUntouched);
    EXPECT_EQ(canvas.At(600, 622), test::Canvas::kUntouched);
    EXPECT_EQ(canvas.At(23, 23), RGB(255, 255, 255));
    EXPECT_EQ(canvas.At(1216, 616), RGB(255, 255, 255));
    for (const ChartBar& bar : drawing.bars) {
        const Rect& at = bar.bounds;
        const int middle = 20 + 2 * at.y + at.height;
        EXPECT_EQ(canvas.At(20 + 2 * at.x + 4, middle), RGB(255, 0, 0));
        EXPECT_EQ(canvas.At(20 + 2 * (at.x + at.width) - 4, middle), RGB(255, 0, 0));
        EXPECT_EQ(canvas.At(20 + 2 * at.x + at.width, 20 + 2 * at.y - 6), RGB(255, 255, 255));
    }
}

}  // namespace
}  // namespace kestrel::ui::win32

#include "tools/pictures/Picture.h"

#include <fstream>
#include <stdexcept>
#include <vector>

#include "platform/win32/Gdi.h"

namespace kestrel::test {

void SavePicture(HWND window, const std::string& path) {
    RECT bounds{};
    GetWindowRect(window, &bounds);
    const int width = bounds.right - bounds.left, height = bounds.bottom - bounds.top;

    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = width;
    format.bmiHeader.biHeight = -height;  // top row first
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    const win32::OwnDc dc(CreateCompatibleDC(nullptr));
    const win32::Bitmap bitmap(
        CreateDIBSection(dc.Get(), &format, DIB_RGB_COLORS, &pixels, nullptr, 0));
    const win32::Selection selection(dc.Get(), bitmap.Get());
    // Wine's PrintWindow leaves the children out.
    const HDC shown = GetDCEx(window, nullptr, DCX_WINDOW | DCX_CACHE);
    const bool copied = BitBlt(dc.Get(), 0, 0, width, height, shown, 0, 0, SRCCOPY);
    ReleaseDC(window, shown);
    if (!copied) throw std::runtime_error("no picture for " + path);
    GdiFlush();

    const auto size = static_cast<DWORD>(width * height * 4);
    auto* const bytes = static_cast<unsigned char*>(pixels);
    for (DWORD i = 3; i < size; i += 4) bytes[i] = 0xFF;  // opaque; drawing leaves it undefined
    BITMAPFILEHEADER head{};
    head.bfType = 0x4D42;  // "BM"
    head.bfOffBits = sizeof head + sizeof format.bmiHeader;
    head.bfSize = head.bfOffBits + size;
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(&head), sizeof head);
    file.write(reinterpret_cast<const char*>(&format.bmiHeader), sizeof format.bmiHeader);
    file.write(static_cast<const char*>(pixels), static_cast<std::streamsize>(size));
    if (!file) throw std::runtime_error("cannot write " + path);
}

}  // namespace kestrel::test

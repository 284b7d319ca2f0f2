#include "windows/chart/PostScriptPrinter.h"

#include <winspool.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace kestrel::test {
namespace {

constexpr wchar_t kDriverName[] = L"Chart test driver";
constexpr wchar_t kOutput[] = L"C:\\chart-test.ps";

constexpr char kDescription[] = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*LanguageEncoding: ISOLatin1
*LanguageVersion: English
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*LandscapeOrientation: Plus90
*TTRasterizer: Type42
*DefaultResolution: 600dpi
*OpenUI *PageSize/Media Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]/ImagingBBox null>>setpagedevice"
*CloseUI: *PageSize
*DefaultImageableArea: A4
*ImageableArea A4/A4: "18 18 577 824"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*DefaultFont: Courier
*Font Courier: Standard "(002.004S)" Standard ROM
)ppd";

/// The spooler's structures hold pointers to text that it only reads.
wchar_t* Text(const wchar_t* text) { return const_cast<wchar_t*>(text); }

[[noreturn]] void Fail(const char* what) {
    throw std::runtime_error(what + (": error " + std::to_string(GetLastError())));
}

void AddDriver() {
    wchar_t folder[MAX_PATH]{};
    DWORD needed = 0;
    if (!GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder),
                                    sizeof folder, &needed))
        Fail("no folder for printer drivers");
    // Where the driver looks for it: behind the version of the driver's kind.
    const auto drivers = std::filesystem::path(folder) / "3";
    std::filesystem::create_directories(drivers);
    std::ofstream(drivers / "chart-test.ppd", std::ios::binary) << kDescription;
    const std::wstring description = drivers / "chart-test.ppd";

    DRIVER_INFO_3W driver{};
    driver.cVersion = 3;
    driver.pName = Text(kDriverName);
    driver.pDriverPath = driver.pConfigFile = Text(L"wineps.drv");
    driver.pDataFile = Text(description.c_str());
    driver.pDefaultDataType = Text(L"RAW");
    if (!AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&driver),
                             APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY) &&
        GetLastError() != ERROR_PRINTER_DRIVER_ALREADY_INSTALLED)
        Fail("the printer driver was not taken");
}

}  // namespace

PostScriptPrinter::PostScriptPrinter() {
    AddDriver();
    std::filesystem::remove(kOutput);
    PRINTER_INFO_2W printer{};
    printer.pPrinterName = Text(Name());
    printer.pPortName = Text(kOutput);
    printer.pDriverName = Text(kDriverName);
    printer.pPrintProcessor = Text(L"WinPrint");
    printer.pDatatype = Text(L"RAW");
    for (wchar_t** text : {&printer.pComment, &printer.pLocation, &printer.pParameters,
                           &printer.pShareName, &printer.pSepFile})
        *text = Text(L"");
    printer_ = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&printer));
    if (!printer_) Fail("the printer was not taken");
    SetDefaultPrinterW(Name());
}

PostScriptPrinter::~PostScriptPrinter() {
    DeletePrinter(printer_);
    ClosePrinter(printer_);
}

std::string PostScriptPrinter::Printed() const {
    std::ostringstream text;
    text << std::ifstream(kOutput, std::ios::binary).rdbuf();
    return text.str();
}

}  // namespace kestrel::test

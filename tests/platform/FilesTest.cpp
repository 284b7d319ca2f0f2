#include "platform/Files.h"

#include <gtest/gtest.h>

#include "base/Errors.h"
#include "platform/SystemDesktop.h"
#include "support/TemporaryFolder.h"

namespace kestrel {
namespace {

TEST(Files, ReplacingLeavesNothingBeside) {
    const test::TemporaryFolder folder;
    const std::string bytes("\0\r\n\xFF", 4);
    const std::string names[] = {"short", "long" + std::string(246, 'n')};  // too long to add to
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        ReplaceWholeFile(folder / name, "first, longer");
        ReplaceWholeFile(folder / name, bytes);
        EXPECT_EQ(ReadWholeFile(folder / name), bytes);
    }
    EXPECT_EQ(folder.EntryCount(), 2u);
}

TEST(Files, AFailureNamesThePathAndLeavesEverythingAsItWas) {
    const test::TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path() / "folder");
    for (const std::string& path : {folder / "folder", folder / "absent/file", std::string()}) {
        SCOPED_TRACE(path);
        try {
            ReplaceWholeFile(path, "x");
            ADD_FAILURE() << "no error";
        } catch (const DataError& error) {
            const std::string message = error.what();
            EXPECT_EQ(message.find("The file '" + path + "' cannot be written: "), 0u) << message;
            EXPECT_EQ(message.find(".", message.size() - 2), message.size() - 1) << message;
        }
        EXPECT_THROW(ReadWholeFile(path), DataError);
    }
    EXPECT_EQ(folder.EntryCount(), 1u);
}

TEST(Files, RefusesAFileAboveTheLimit) {
    const test::TemporaryFolder folder;
    ReplaceWholeFile(folder / "five", "12345");
    EXPECT_EQ(ReadWholeFile(folder / "five", 5), "12345");
    EXPECT_THROW(ReadWholeFile(folder / "five", 4), DataError);
}

TEST(Files, DesktopTakesBothSlashesAndTellsFilesFromFolders) {
    const test::TemporaryFolder folder;
    SystemDesktop desktop;
    std::filesystem::create_directory(folder.Path() / "sub");
    desktop.WriteFile(folder / "sub\\file", "x");
    for (const char* name : {"sub\\file", "sub/file"}) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(desktop.FileIsThere(folder / name));
        EXPECT_EQ(desktop.ReadFile(folder / name), "x");
    }
    for (const char* name : {"sub", "absent", "absent/file", "sub/", "sub/f*", "sub/fil?", ""}) {
        SCOPED_TRACE(name);
        EXPECT_FALSE(desktop.FileIsThere(folder / name));
    }
    EXPECT_FALSE(desktop.FileIsThere(""));
}

}  // namespace
}  // namespace kestrel

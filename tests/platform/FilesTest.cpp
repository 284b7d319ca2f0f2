#include "platform/Files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "platform/posix/PosixDesktop.h"
#include "util/Errors.h"

namespace kestrel {
namespace {

namespace fs = std::filesystem;

class Files : public testing::Test {
 protected:
    Files() {
        std::string name = (fs::temp_directory_path() / "kestrel-files-XXXXXX").string();
        folder_ = ::mkdtemp(name.data());
    }
    ~Files() override { fs::remove_all(folder_); }

    std::string Path(const std::string& name) const { return (folder_ / name).string(); }

    std::size_t EntryCount() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }

    fs::path folder_;
};

TEST_F(Files, ReplacingKeepsPermissionsAndLeavesNothingBeside) {
    const std::string bytes("\0\r\n\xFF", 4);
    const std::string path = Path(std::string(250, 'n'));  // too long to add a suffix to
    ReplaceWholeFile(path, "first, longer");
    ::chmod(path.c_str(), 0640);
    ReplaceWholeFile(path, bytes);
    EXPECT_EQ(ReadWholeFile(path), bytes);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms{0640});
    EXPECT_EQ(EntryCount(), 1u);
}

TEST_F(Files, ReplacesWhatALinkPointsAtAndKeepsTheLink) {
    fs::create_directory(folder_ / "sub");
    for (const char* target : {"existing", "sub/new"}) {
        SCOPED_TRACE(target);
        std::ofstream(Path("existing")) << "old";
        fs::remove(folder_ / "link");
        fs::create_symlink(target, folder_ / "link");
        ReplaceWholeFile(Path("link"), "new");
        EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
        EXPECT_EQ(ReadWholeFile(Path(target)), "new");
    }
}

TEST_F(Files, AFailureNamesThePathAndLeavesEverythingAsItWas) {
    fs::create_directory(folder_ / "folder");
    fs::create_symlink("loop", folder_ / "loop");
    for (const std::string& path : {Path("folder"), Path("absent/file"), Path("loop")}) {
        try {
            ReplaceWholeFile(path, "x");
            ADD_FAILURE() << path;
        } catch (const DataError& error) {
            EXPECT_NE(std::string(error.what()).find(path), std::string::npos) << error.what();
        }
        EXPECT_THROW(ReadWholeFile(path), DataError);
    }
    EXPECT_EQ(EntryCount(), 2u);
}

TEST_F(Files, RefusesAFileAboveTheLimit) {
    ReplaceWholeFile(Path("five"), "12345");
    EXPECT_EQ(ReadWholeFile(Path("five"), 5), "12345");
    EXPECT_THROW(ReadWholeFile(Path("five"), 4), DataError);
    // No plain file tells its size: /dev/zero would be read without end.
    EXPECT_THROW(ReadWholeFile("/dev/zero", 1000), DataError);
}

TEST_F(Files, DesktopTakesBackslashesAndTellsFilesFromFolders) {
    PosixDesktop desktop;
    fs::create_directory(folder_ / "sub");
    desktop.WriteFile(Path("sub\\file"), "x");
    EXPECT_TRUE(desktop.FileIsThere(Path("sub\\file")));
    EXPECT_EQ(desktop.ReadFile(Path("sub\\file")), "x");
    EXPECT_FALSE(desktop.FileIsThere(Path("sub")));
    EXPECT_FALSE(desktop.FileIsThere(Path("absent")));
    EXPECT_FALSE(desktop.FileIsThere(""));
}

TEST(PosixDesktop, AnswersThatDestroyNothingAreTheDefault) {
    PosixDesktop desktop;
    testing::internal::CaptureStderr();
    EXPECT_EQ(desktop.ShowMessage("a", MessageButtons::Ok, ""), MessageAnswer::Ok);
    EXPECT_EQ(desktop.ShowMessage("b", MessageButtons::OkCancel, "Warning"), MessageAnswer::Cancel);
    EXPECT_EQ(desktop.ShowMessage("c", MessageButtons::YesNo, ""), MessageAnswer::No);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Risk Factors: a\nWarning: b\nRisk Factors: c\n");
}

}  // namespace
}  // namespace kestrel

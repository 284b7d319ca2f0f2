#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "base/Errors.h"
#include "platform/Files.h"
#include "platform/posix/PosixDesktop.h"
#include "support/TemporaryFolder.h"

namespace kestrel {
namespace {

namespace fs = std::filesystem;

TEST(PosixFiles, ReplacingKeepsPermissions) {
    const test::TemporaryFolder folder;
    ReplaceWholeFile(folder / "file", "first");
    ::chmod((folder / "file").c_str(), 0640);
    ReplaceWholeFile(folder / "file", "second");
    EXPECT_EQ(fs::status(folder.Path() / "file").permissions(), fs::perms{0640});
}

TEST(PosixFiles, ReplacesWhatALinkPointsAtAndKeepsTheLink) {
    const test::TemporaryFolder folder;
    const fs::path link = folder.Path() / "link";
    fs::create_directory(folder.Path() / "sub");
    for (const char* target : {"existing", "sub/new"}) {
        SCOPED_TRACE(target);
        std::ofstream(folder / "existing") << "old";
        fs::remove(link);
        fs::create_symlink(target, link);
        ReplaceWholeFile(folder / "link", "new");
        EXPECT_TRUE(fs::is_symlink(link));
        EXPECT_EQ(ReadWholeFile(folder / target), "new");
    }
    fs::create_symlink("loop", folder.Path() / "loop");
    EXPECT_THROW(ReplaceWholeFile(folder / "loop", "x"), DataError);
    EXPECT_THROW(ReadWholeFile(folder / "loop"), DataError);
}

TEST(PosixFiles, BoundsWhatTellsNoSize) {
    EXPECT_THROW(ReadWholeFile("/dev/zero", 1000), DataError);
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

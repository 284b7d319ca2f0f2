#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "base/Errors.h"
#include "platform/Files.h"
#include "platform/posix/PosixDesktop.h"
#include "support/TemporaryFolder.h"

namespace kestrel {
namespace {

namespace fs = std::filesystem;

TEST(PosixFiles, ReplacingKeepsPermissionsAndOwner) {
    const test::TemporaryFolder folder;
    const std::string path = folder / "file";
    ReplaceWholeFile(path, "first");
    ::chmod(path.c_str(), 0640);
    const bool mayGive = ::chown(path.c_str(), 1234, 4321) == 0;
    ReplaceWholeFile(path, "second");
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
    EXPECT_EQ(status.st_uid, mayGive ? 1234 : ::getuid());
    EXPECT_EQ(status.st_gid, mayGive ? 4321 : ::getgid());
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

TEST(PosixHelp, OpensThePageInTheBrowserOrSaysWhereItIs) {
    const test::TemporaryFolder folder;
    fs::create_directory(folder.Path() / "help");
    ReplaceWholeFile(folder / "help/a.html", "page");
    ReplaceWholeFile(folder / "xdg-open",
                     "#!/bin/sh\nprintf %s \"$1\" >\"$0.part\"\n"
                     "mv \"$0.part\" \"$0.asked\"\n");
    ::chmod((folder / "xdg-open").c_str(), 0755);
    const std::string path = ::getenv("PATH");
    PosixDesktop desktop;
    const std::string topic = folder / "Help.chm::/";
    ::setenv("PATH", (folder / (":" + path)).c_str(), 1);
    desktop.ShowHelpTopic(topic + "a.html");
    for (int i = 0; i < 500 && !fs::exists(folder / "xdg-open.asked"); ++i) ::usleep(10000);
    ::setenv("PATH", "/nowhere", 1);
    EXPECT_THROW(desktop.ShowHelpTopic(topic + "a.html"), DataError);
    ::setenv("PATH", path.c_str(), 1);
    EXPECT_EQ(ReadWholeFile(folder / "xdg-open.asked"), folder / "help/a.html");
    EXPECT_THROW(desktop.ShowHelpTopic(topic + "absent.html"), DataError);
    EXPECT_THROW(desktop.ShowHelpTopic(topic + "../a.html"), DataError);
}

}  // namespace
}  // namespace kestrel

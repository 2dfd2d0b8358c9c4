// What a run meets where its user may not do everything.
#include <filesystem>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "engine/RunFixture.h"
#include "support/ScopedOrdinaryUser.h"
#include "support/ScopedTimeZone.h"

namespace vellomar {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class PermissionsTest : public RunTest {
protected:
    PermissionsTest() {
        // The unprivileged user may go everywhere and write into the destination.
        allow(folder.path(), 0777);
        allow(source, 0777);
        allow(dest, 0777);
    }

    static void allow(const std::string& path, mode_t mode) { ASSERT_EQ(chmod(path.c_str(), mode), 0) << path; }

    // The log of a run by a user who is not root, one line after the other.
    [[nodiscard]] std::string logOfRun(const Options& options) const {
        const testing::ScopedOrdinaryUser user(folder.path());
        testing::EngineHarness unprivileged;
        unprivileged.run({source}, dest, options);
        std::string text;
        for (const auto& line : unprivileged.observer.allLogLines)
            text += line + "\n";
        return text;
    }

    testing::ScopedTimeZone zone{"UTC"};
};

TEST_F(PermissionsTest, AnUnreadableFileFailsAlone) {
    allow(photo("20230814_143021.jpg", "secret"), 0000);
    allow(photo("20230815_143021.jpg", "open"), 0644);
    const auto log = logOfRun(copyOptions());
    EXPECT_THAT(log, HasSubstr("✗ Copy failed [20230814_143021.jpg]: Permission denied (domain=POSIX code=13)\n"
                               "  exists=true readable=false destParentWritable=true\n"));
    EXPECT_THAT(log, HasSubstr("✓ Copied: 20230815_143021.jpg"));
}

TEST_F(PermissionsTest, AnUnreadableFileOnNetworkStorageIsToldInOurWords) {
    const auto path = photo("20230814_143021.jpg", "secret");
    allow(path, 0000);
    auto options = copyOptions();
    options.storageIsNetwork = true;
    EXPECT_THAT(logOfRun(options), HasSubstr("✗ Copy failed [20230814_143021.jpg]: Cannot open source: " + path +
                                             " (domain=Vellomar code=1)\n"));
}

TEST_F(PermissionsTest, AReadOnlyDestinationFailsEveryFileAndSaysWhy) {
    photo("20230814_143021.jpg", "1");
    allow(source + "/20230814_143021.jpg", 0644);
    allow(dest, 0555);
    const auto log = logOfRun(copyOptions());
    EXPECT_THAT(log, HasSubstr("✗ Cannot create dest dir [" + dest +
                               "/2023/08 - August]: Permission denied (domain=POSIX code=13)\n"
                               "  destExists=false destWritable=false\n"));
    EXPECT_THAT(log, HasSubstr("  Files processed:    1 of 1"));
}

TEST_F(PermissionsTest, AnOriginalInAReadOnlyFolderIsCopiedAndStays) {
    const auto path = photo("20230814_143021.jpg", "1");
    allow(path, 0644);
    allow(source, 0555);
    const auto log = logOfRun(moveOptions());
    EXPECT_THAT(log, HasSubstr("⚠ Could not delete source after move: Permission denied\n✓ Moved: "));
    EXPECT_TRUE(testing::exists(path));
}

TEST_F(PermissionsTest, AnUnreadableFolderCostsOnlyWhatLiesInIt) {
    allow(photo("20230814_143021.jpg", "1"), 0644);
    photo("closed/20230815_143021.jpg", "2");
    allow(source + "/closed", 0000);
    const auto log = logOfRun(copyOptions());
    EXPECT_THAT(log, HasSubstr("Total files: 1\n"));
    EXPECT_THAT(log, Not(HasSubstr("20230815")));
    allow(source + "/closed", 0755);
}

TEST_F(PermissionsTest, AnUnreadableSourceIsTold) {
    allow(source, 0000);
    const auto log = logOfRun(copyOptions());
    EXPECT_THAT(log,
                HasSubstr("Failed to enumerate source: " + source + "\nNo files found under 1 source folder(s)\n"));
    allow(source, 0755);
}

}  // namespace
}  // namespace vellomar

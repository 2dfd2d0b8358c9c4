#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"
#include "ui/desktop/SchemeProgram.h"

namespace vellomar {
namespace {

// The desktop's lists are read once a process, so each question is asked in a process of its own: this program, again.
bool asksAs(const testing::TemporaryFolder& desktop, const QString& scheme) {
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_DATA_HOME", QString::fromStdString(desktop / "data"));
    environment.insert("XDG_DATA_DIRS", QString::fromStdString(desktop / "none"));
    environment.insert("XDG_CONFIG_HOME", QString::fromStdString(desktop / "config"));
    for (const char* const name : {"GTEST_TOTAL_SHARDS", "GTEST_SHARD_INDEX"})
        environment.remove(name);
    environment.insert("VELLOMAR_ASKED_SCHEME", scheme);
    process.setProcessEnvironment(environment);
    process.start("/proc/self/exe", {"--gtest_filter=SchemeProgramAnswer.*"});
    process.waitForFinished();
    return process.readAllStandardOutput().contains("answer: yes");
}

TEST(SchemeProgramAnswer, IsPrinted) {
    const auto scheme = qEnvironmentVariable("VELLOMAR_ASKED_SCHEME", "vellomar-none").toStdString();
    const bool hasProgram = hasProgramForScheme(scheme);
    printf("answer: %s\n", hasProgram ? "yes" : "no");
    EXPECT_FALSE(scheme == "vellomar-none" && hasProgram);
}

TEST(SchemeProgram, IsThereWhereTheDesktopNamesOne) {
    const testing::TemporaryFolder desktop;
    desktop.write("data/applications/maps.desktop",
                  "[Desktop Entry]\nType=Application\nName=Maps\nExec=/bin/true %u\nMimeType=x-scheme-handler/geo;\n");
    desktop.write("data/applications/mimeinfo.cache", "[MIME Cache]\nx-scheme-handler/geo=maps.desktop;\n");
    EXPECT_TRUE(asksAs(desktop, "geo"));
    EXPECT_FALSE(asksAs(desktop, "maps"));
}

}  // namespace
}  // namespace vellomar

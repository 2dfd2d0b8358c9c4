// The program as it is started, without a display.
#include <QProcess>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"
#include "ui/desktop/PrivateBus.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::spinUntil;

class ProgramTest : public ::testing::Test {
protected:
    void start(QProcess& program) const {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("XDG_CONFIG_HOME", QString::fromStdString(folder.path()));
        environment.insert("DBUS_SESSION_BUS_ADDRESS", bus.address());
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::ForwardedChannels);
        program.start(VELLOMAR_PROGRAM, QStringList());
    }

    // The first that the window does is to write a setting.
    [[nodiscard]] bool hasAppeared() const { return testing::exists(folder / "vellomar/settings.json"); }

    void expectToEndWell(QProcess& program) {
        ASSERT_TRUE(spinUntil([&] { return program.state() == QProcess::NotRunning; }));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0);
    }

    testing::TemporaryFolder folder;
    testing::PrivateBus bus;
};

TEST_F(ProgramTest, EndsInOrderWhenItIsToldToFromOutside) {
    QProcess program;
    start(program);
    ASSERT_TRUE(spinUntil([&] { return hasAppeared(); }));
    program.terminate();
    expectToEndWell(program);
}

TEST_F(ProgramTest, ASecondStartEndsAtOnceAndLeavesTheFirst) {
    QProcess first;
    start(first);
    ASSERT_TRUE(spinUntil([&] { return hasAppeared(); }));
    QProcess second;
    start(second);
    expectToEndWell(second);
    EXPECT_EQ(first.state(), QProcess::Running);
    first.terminate();
    expectToEndWell(first);
}

}  // namespace
}  // namespace vellomar

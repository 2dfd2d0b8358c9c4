#include <QQuickWindow>
#include <optional>

#include <gtest/gtest.h>

#include "platform/LinuxFileSystem.h"
#include "ui/QmlModule.h"
#include "ui/desktop/DesktopFileChooser.h"
#include "ui/desktop/PrivateBus.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::FakeService;
using testing::noBus;
using testing::PrivateBus;
using testing::spinUntil;

class DesktopFileChooserTest : public ::testing::Test {
protected:
    DesktopFileChooserTest() {
        installQmlModule(engine);
        window.show();
    }

    LinuxFileSystem disk;
    QQmlEngine engine;
    QQuickWindow window;
};

TEST_F(DesktopFileChooserTest, AsksThePortal) {
    PrivateBus bus;
    FakeService portal(bus, "org.freedesktop.portal.Desktop", [](const QDBusMessage&) { return QDBusMessage(); });
    DesktopFileChooser chooser(bus.connect(), engine, disk);
    chooser.chooseFolders("Select", &window, [](const std::vector<std::string>&) {});
    ASSERT_TRUE(spinUntil([&] { return !portal.calls("OpenFile").empty(); }));
    EXPECT_EQ(chooser.findChild<QObject*>("folderDialog"), nullptr);
}

TEST_F(DesktopFileChooserTest, ShowsQtsDialogWithoutAPortal) {
    PrivateBus bus;
    for (const auto& connection : {bus.connect(), noBus()}) {
        SCOPED_TRACE(connection.isConnected());
        DesktopFileChooser chooser(connection, engine, disk);
        chooser.chooseFolders("Select", &window, [](const std::vector<std::string>&) {});
        EXPECT_TRUE(spinUntil([&] { return chooser.findChild<QObject*>("folderDialog") != nullptr; }));
        EXPECT_TRUE(chooser.findChild<QObject*>("folderDialog")->property("visible").toBool());
    }
}

}  // namespace
}  // namespace vellomar

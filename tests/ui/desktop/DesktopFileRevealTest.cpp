#include <optional>

#include <gtest/gtest.h>

#include "ui/QtPrinters.h"
#include "ui/desktop/DesktopFileReveal.h"
#include "ui/desktop/PrivateBus.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::FakeService;
using testing::noBus;
using testing::PrivateBus;
using testing::spinUntil;

const QString kFileManager = QStringLiteral("org.freedesktop.FileManager1");

TEST(DesktopFileReveal, HasTheFileManagerShowTheFile) {
    PrivateBus bus;
    FakeService manager(bus, kFileManager, [](const QDBusMessage& call) { return call.createReply(); });
    DesktopFileReveal reveal(bus.connect(), [](const std::string& folder) { ADD_FAILURE() << folder; });
    reveal.reveal("/media/My photos/100%/caf\xE9 #1?.jpg");
    ASSERT_TRUE(spinUntil([&] { return !manager.calls("ShowItems").empty(); }));
    const auto call = manager.calls("ShowItems").front();
    EXPECT_EQ(call.path(), "/org/freedesktop/FileManager1");
    EXPECT_EQ(call.interface(), "org.freedesktop.FileManager1");
    EXPECT_EQ(call.signature(), "ass");
    EXPECT_EQ(call.arguments().at(0).toStringList(),
              QStringList{"file:///media/My%20photos/100%25/caf%E9%20%231%3F.jpg"});
}

TEST(DesktopFileReveal, OpensTheFolderWhereThereIsNoFileManager) {
    PrivateBus bus;
    FakeService refusing(bus, kFileManager, [](const QDBusMessage& call) {
        return call.createErrorReply(QDBusError::NotSupported, "no");
    });
    PrivateBus emptyBus;
    for (const auto& connection : {bus.connect(), emptyBus.connect(), noBus()}) {
        std::optional<std::string> opened;
        DesktopFileReveal reveal(connection, [&](const std::string& folder) { opened = folder; });
        reveal.reveal("/media/My photos/caf\xE9/a.jpg");
        EXPECT_FALSE(opened);
        ASSERT_TRUE(spinUntil([&] { return opened.has_value(); }));
        EXPECT_EQ(*opened, "/media/My photos/caf\xE9");
    }
}

}  // namespace
}  // namespace vellomar

#include <QDBusArgument>
#include <thread>

#include <gtest/gtest.h>

#include "ui/QtPrinters.h"
#include "ui/desktop/DesktopNotifications.h"
#include "ui/desktop/PrivateBus.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::FakeService;
using testing::noBus;
using testing::PrivateBus;
using testing::spinUntil;

const QString kNotifications = QStringLiteral("org.freedesktop.Notifications");

FakeService::Answer with(const QStringList& capabilities) {
    return [capabilities](const QDBusMessage& call) {
        return call.member() == "GetCapabilities" ? call.createReply(capabilities) : call.createReply(7U);
    };
}

TEST(DesktopNotifications, AreShownFromAnyThread) {
    PrivateBus bus;
    FakeService service(bus, kNotifications, with({"body"}));
    DesktopNotifications notifications(bus.connect());
    std::thread([&] { notifications.notify("Done — 3 files", "Größe < 1 & more"); }).join();
    ASSERT_TRUE(spinUntil([&] { return !service.calls("Notify").empty(); }));
    const auto call = service.calls("Notify").front();
    EXPECT_EQ(call.path(), "/org/freedesktop/Notifications");
    EXPECT_EQ(call.interface(), "org.freedesktop.Notifications");
    EXPECT_EQ(call.signature(), "susssasa{sv}i");
    const auto arguments = call.arguments();
    EXPECT_EQ(arguments.at(0).toString(), "Vellomar");
    EXPECT_EQ(arguments.at(1).toUInt(), 0U);
    EXPECT_EQ(arguments.at(2).toString(), "vellomar");
    EXPECT_EQ(arguments.at(3).toString(), QString::fromUtf8("Done — 3 files"));
    EXPECT_EQ(arguments.at(4).toString(), QString::fromUtf8("Größe < 1 & more"));
    EXPECT_EQ(arguments.at(5).toStringList(), QStringList());
    EXPECT_EQ(qdbus_cast<QVariantMap>(arguments.at(6)), (QVariantMap{{"desktop-entry", "vellomar"}}));
    EXPECT_EQ(arguments.at(7).toInt(), -1);
}

TEST(DesktopNotifications, TextIsNoMarkup) {
    PrivateBus bus;
    FakeService service(bus, kNotifications, with({"body", "body-markup"}));
    DesktopNotifications notifications(bus.connect());
    notifications.notify("a < b", "<b> & \"c\"");
    ASSERT_TRUE(spinUntil([&] { return !service.calls("Notify").empty(); }));
    const auto arguments = service.calls("Notify").front().arguments();
    EXPECT_EQ(arguments.at(3).toString(), "a < b");
    EXPECT_EQ(arguments.at(4).toString(), "&lt;b&gt; &amp; &quot;c&quot;");
}

TEST(DesktopNotifications, WhereNobodyListensNothingHappens) {
    PrivateBus bus;
    PrivateBus otherBus;
    DesktopNotifications withoutService(bus.connect());
    DesktopNotifications withoutBus(noBus());
    withoutService.notify("title", "body");
    withoutBus.notify("title", "body");

    FakeService refusing(bus, kNotifications, [](const QDBusMessage& call) {
        return call.createErrorReply(QDBusError::AccessDenied, "no");
    });
    DesktopNotifications refused(bus.connect());
    refused.notify("title", "body");
    ASSERT_TRUE(spinUntil([&] { return !refusing.calls("GetCapabilities").empty(); }));

    // The next one is heard, so those before have come to nothing.
    FakeService service(otherBus, kNotifications, with({}));
    DesktopNotifications heard(otherBus.connect());
    heard.notify("heard", "body");
    ASSERT_TRUE(spinUntil([&] { return !service.calls("Notify").empty(); }));
    EXPECT_EQ(service.calls("Notify").size(), 1U);
    EXPECT_TRUE(refusing.calls("Notify").empty());
}

TEST(DesktopNotifications, GoneTheyAreSilent) {
    PrivateBus bus;
    FakeService service(bus, kNotifications, with({}));
    {
        DesktopNotifications leaving(bus.connect());
        leaving.notify("never", "");
    }
    DesktopNotifications staying(bus.connect());
    staying.notify("shown", "");
    ASSERT_TRUE(spinUntil([&] { return !service.calls("Notify").empty(); }));
    EXPECT_EQ(service.calls("Notify").front().arguments().at(3).toString(), "shown");
}

}  // namespace
}  // namespace vellomar

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <array>
#include <memory>
#include <thread>

#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include "platform/FileDescriptor.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/DesktopSleepInhibitor.h"
#include "ui/desktop/PrivateBus.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::FakeService;
using testing::noBus;
using testing::PrivateBus;
using testing::spinUntil;

// Grants what is asked, each under a handle of its own.
class FakeInhibitPortal : public FakeService {
public:
    explicit FakeInhibitPortal(PrivateBus& bus)
        : FakeService(bus, "org.freedesktop.portal.Desktop", [this](const QDBusMessage& call) {
              if (call.member() != "Inhibit") return call.createReply();
              const QDBusObjectPath handle(QStringLiteral("/request/%1").arg(++granted_));
              return call.createReply(QVariant::fromValue(handle));
          }) {}

    [[nodiscard]] QStringList closed() const {
        QStringList handles;
        for (const auto& call : calls("Close"))
            handles << call.path();
        return handles;
    }

private:
    int granted_ = 0;
};

// Grants what is asked, and knows whether what it gave is still held.
class FakeLoginService : public FakeService {
public:
    explicit FakeLoginService(PrivateBus& bus)
        : FakeService(bus, "org.freedesktop.login1", [this](const QDBusMessage& call) { return granted(call); }) {}

    [[nodiscard]] bool isHeld() const {
        pollfd poll{.fd = lock_->get(), .events = POLLIN, .revents = 0};
        ::poll(&poll, 1, 0);
        return (poll.revents & POLLHUP) == 0;
    }

private:
    QDBusMessage granted(const QDBusMessage& call) {
        std::array<int, 2> pipe{};
        if (::pipe(pipe.data()) != 0) return {};
        lock_ = std::make_unique<FileDescriptor>(pipe[0]);
        const FileDescriptor given(pipe[1]);
        return call.createReply(QVariant::fromValue(QDBusUnixFileDescriptor(given.get())));
    }

    std::unique_ptr<FileDescriptor> lock_;
};

TEST(DesktopSleepInhibitor, HoldsThroughThePortal) {
    PrivateBus bus;
    FakeInhibitPortal portal(bus);
    DesktopSleepInhibitor inhibitor(bus.connect(), noBus());
    auto hold = inhibitor.inhibit("Sorting photos");
    ASSERT_NE(hold, nullptr);
    ASSERT_TRUE(spinUntil([&] { return portal.calls("Inhibit").size() == 1; }));
    const auto call = portal.calls("Inhibit").front();
    EXPECT_EQ(call.path(), "/org/freedesktop/portal/desktop");
    EXPECT_EQ(call.interface(), "org.freedesktop.portal.Inhibit");
    EXPECT_EQ(call.signature(), "sua{sv}");
    EXPECT_EQ(call.arguments().at(0).toString(), "");
    EXPECT_EQ(call.arguments().at(1).toUInt(), 12U);
    EXPECT_EQ(qdbus_cast<QVariantMap>(call.arguments().at(2)).value("reason").toString(), "Sorting photos");
    EXPECT_TRUE(portal.closed().empty());

    hold.reset();
    ASSERT_TRUE(spinUntil([&] { return !portal.closed().empty(); }));
    EXPECT_EQ(portal.closed(), QStringList{"/request/1"});
    EXPECT_EQ(portal.calls("Close").front().interface(), "org.freedesktop.portal.Request");
}

TEST(DesktopSleepInhibitor, HoldsMayOverlap) {
    PrivateBus bus;
    FakeInhibitPortal portal(bus);
    DesktopSleepInhibitor inhibitor(bus.connect(), noBus());
    auto first = inhibitor.inhibit("one");
    auto second = inhibitor.inhibit("two");
    ASSERT_TRUE(spinUntil([&] { return portal.calls("Inhibit").size() == 2; }));
    first.reset();
    ASSERT_TRUE(spinUntil([&] { return !portal.closed().empty(); }));
    auto third = inhibitor.inhibit("three");
    ASSERT_TRUE(spinUntil([&] { return portal.calls("Inhibit").size() == 3; }));
    EXPECT_EQ(portal.closed(), QStringList{"/request/1"});
    third.reset();
    ASSERT_TRUE(spinUntil([&] { return portal.closed().size() == 2; }));
    second.reset();
    ASSERT_TRUE(spinUntil([&] { return portal.closed().size() == 3; }));
    EXPECT_EQ(portal.closed(), (QStringList{"/request/1", "/request/3", "/request/2"}));
}

TEST(DesktopSleepInhibitor, WhatIsGivenBackBeforeItIsGrantedIsStillGivenBack) {
    PrivateBus bus;
    FakeInhibitPortal portal(bus);
    DesktopSleepInhibitor inhibitor(bus.connect(), noBus());
    inhibitor.inhibit("Undoing a run").reset();
    EXPECT_TRUE(spinUntil([&] { return portal.closed() == QStringList{"/request/1"}; }));
}

TEST(DesktopSleepInhibitor, AnyThreadMayHold) {
    PrivateBus bus;
    FakeInhibitPortal portal(bus);
    DesktopSleepInhibitor inhibitor(bus.connect(), noBus());
    std::unique_ptr<SleepInhibitor::Hold> hold;
    std::thread([&] { hold = inhibitor.inhibit("Sorting photos"); }).join();
    ASSERT_TRUE(spinUntil([&] { return portal.calls("Inhibit").size() == 1; }));
    std::thread([&] { hold.reset(); }).join();
    EXPECT_TRUE(spinUntil([&] { return portal.closed().size() == 1; }));
}

TEST(DesktopSleepInhibitor, HoldsThroughTheLoginServiceWhereThePortalCannot) {
    PrivateBus session;
    PrivateBus system;
    FakeService portal(session, "org.freedesktop.portal.Desktop",
                       [](const QDBusMessage& call) { return call.createErrorReply(QDBusError::UnknownMethod, "no"); });
    FakeLoginService login(system);
    for (const auto& sessionBus : {session.connect(), noBus()}) {
        SCOPED_TRACE(sessionBus.isConnected());
        const auto before = login.calls("Inhibit").size();
        DesktopSleepInhibitor inhibitor(sessionBus, system.connect());
        auto hold = inhibitor.inhibit("Sorting photos");
        ASSERT_NE(hold, nullptr);
        ASSERT_TRUE(spinUntil([&] { return login.calls("Inhibit").size() == before + 1; }));
        const auto call = login.calls("Inhibit").back();
        EXPECT_EQ(call.path(), "/org/freedesktop/login1");
        EXPECT_EQ(call.interface(), "org.freedesktop.login1.Manager");
        EXPECT_EQ(call.arguments(), (QVariantList{"idle:sleep", "Vellomar", "Sorting photos", "block"}));
        EXPECT_TRUE(login.isHeld());
        hold.reset();
        EXPECT_TRUE(spinUntil([&] { return !login.isHeld(); }));
    }
}

TEST(DesktopSleepInhibitor, GivesBackAllWhenItGoes) {
    PrivateBus session;
    PrivateBus system;
    FakeLoginService login(system);
    auto inhibitor = std::make_unique<DesktopSleepInhibitor>(noBus(), system.connect());
    auto hold = inhibitor->inhibit("Sorting photos");
    ASSERT_TRUE(spinUntil([&] { return !login.calls("Inhibit").empty() && login.isHeld(); }));
    hold.reset();  // noticed by nobody, as there is no event loop any more
    inhibitor.reset();
    EXPECT_TRUE(spinUntil([&] { return !login.isHeld(); }));
}

TEST(DesktopSleepInhibitor, ThereIsNoHoldWithoutABus) {
    DesktopSleepInhibitor inhibitor(noBus(), noBus());
    EXPECT_EQ(inhibitor.inhibit("Sorting photos"), nullptr);
}

TEST(DesktopSleepInhibitor, ARefusalIsSilent) {
    PrivateBus bus;
    DesktopSleepInhibitor inhibitor(bus.connect(), bus.connect());
    auto hold = inhibitor.inhibit("Sorting photos");
    EXPECT_NE(hold, nullptr);
    hold.reset();

    // It has gone on to the next, and holds that as it should.
    FakeInhibitPortal portal(bus);
    hold = inhibitor.inhibit("again");
    EXPECT_TRUE(spinUntil([&] { return !portal.calls("Inhibit").empty(); }));
    hold.reset();
    EXPECT_TRUE(spinUntil([&] { return portal.calls("Close").size() == portal.calls("Inhibit").size(); }));
}

}  // namespace
}  // namespace vellomar

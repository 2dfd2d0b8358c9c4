#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QFile>
#include <QSysInfo>
#include <QThread>
#include <atomic>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/desktop/PrivateBus.h"
#include "ui/desktop/SingleInstance.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using testing::FakeService;
using testing::noBus;
using testing::PrivateBus;
using testing::spinUntil;
using testing::TemporaryFolder;
using ::testing::UnorderedElementsAreArray;
using Start = SingleInstance::Start;

const QString kName = QStringLiteral("io.github.vellomar.Vellomar");

// Both ways of knowing of each other, of which a start has one.
class SingleInstanceTest : public ::testing::TestWithParam<bool> {
protected:
    // A start of the program. Any thread.
    [[nodiscard]] std::unique_ptr<SingleInstance> start() {
        return std::make_unique<SingleInstance>(GetParam() ? bus.connect() : noBus(),
                                                QString::fromStdString(folder / "vellomar"));
    }

    // A start that ends when it is not the first, while the event loop of the test goes on.
    [[nodiscard]] Start startElsewhere(const QString& token) {
        std::atomic<bool> isDone = false;
        Start result = Start::first;
        std::thread program([&] {
            result = start()->claim(token);
            isDone = true;
        });
        EXPECT_TRUE(spinUntil([&] { return isDone.load(); }));
        program.join();
        return result;
    }

    PrivateBus bus;
    TemporaryFolder folder;
};

TEST_P(SingleInstanceTest, TheSecondHasTheFirstShowItself) {
    const auto first = start();
    std::vector<QString> tokens;
    QObject::connect(first.get(), &SingleInstance::activated, [&](const QString& token) { tokens.push_back(token); });
    ASSERT_EQ(first->claim("of the first"), Start::first);

    for (const QString& token : {QStringLiteral("wayland-ä-7"), QString()}) {
        EXPECT_EQ(startElsewhere(token), Start::second);
        ASSERT_TRUE(spinUntil([&] { return !tokens.empty(); }));
        EXPECT_THAT(tokens, ElementsAre(token));
        tokens.clear();
    }
}

TEST_P(SingleInstanceTest, TheNextOneIsTheFirstAgain) {
    auto first = start();
    ASSERT_EQ(first->claim({}), Start::first);
    first.reset();
    EXPECT_EQ(start()->claim({}), Start::first);
}

// What many starts at the same time came to. Any thread.
struct ManyStarts {
    std::mutex lock;
    int firsts = 0;                // under lock, as are the others
    std::vector<QString> sent;     // by those that were not the first
    std::vector<QString> arrived;  // at the one that was

    void noteArrival(const QString& token) {
        const std::lock_guard guard(lock);
        arrived.push_back(token);
    }

    void note(Start start, const QString& token) {
        const std::lock_guard guard(lock);
        if (start == Start::first)
            ++firsts;
        else
            sent.push_back(token);
    }

    [[nodiscard]] std::size_t arrivals() {
        const std::lock_guard guard(lock);
        return arrived.size();
    }
};

TEST_P(SingleInstanceTest, OfManyAtTheSameTimeOneIsTheFirst) {
    constexpr std::size_t kStarts = 8;
    ManyStarts starts;
    const auto program = [&](const QString& token) {
        const auto instance = start();
        QObject::connect(instance.get(), &SingleInstance::activated, instance.get(),
                         [&](const QString& received) { starts.noteArrival(received); });
        const auto claimed = instance->claim(token);
        starts.note(claimed, token);
        EXPECT_TRUE(claimed != Start::first || spinUntil([&] { return starts.arrivals() == kStarts - 1; }));
    };
    std::vector<std::unique_ptr<QThread>> programs;
    for (std::size_t i = 0; i < kStarts; ++i) {
        programs.emplace_back(QThread::create(program, QString::number(i)));
        programs.back()->start();
    }
    for (const auto& running : programs)
        running->wait();
    EXPECT_EQ(starts.firsts, 1);
    EXPECT_EQ(starts.sent.size(), kStarts - 1);
    EXPECT_THAT(starts.arrived, UnorderedElementsAreArray(starts.sent));
}

INSTANTIATE_TEST_SUITE_P(Both, SingleInstanceTest, ::testing::Bool(),
                         [](const auto& way) { return way.param ? "OverABus" : "OverASocket"; });

class SingleInstanceOnABus : public ::testing::Test {
protected:
    // What the desktop would do.
    void call(const QString& member, const QVariantList& arguments) {
        auto message = QDBusMessage::createMethodCall(kName, "/io/github/vellomar/Vellomar",
                                                      "org.freedesktop.Application", member);
        message.setArguments(arguments);
        desktop.asyncCall(message);
    }

    PrivateBus bus;
    QDBusConnection desktop = bus.connect();
    TemporaryFolder folder;
    SingleInstance instance{bus.connect(), QString::fromStdString(folder / "unused")};
    std::vector<QString> tokens;
};

TEST_F(SingleInstanceOnABus, AnswersTheDesktop) {
    QObject::connect(&instance, &SingleInstance::activated, [this](const QString& token) { tokens.push_back(token); });
    ASSERT_EQ(instance.claim({}), Start::first);
    EXPECT_TRUE(desktop.interface()->isServiceRegistered(kName).value());
    EXPECT_FALSE(testing::exists(folder / "unused"));

    call("Activate", {QVariantMap{{"activation-token", "of Wayland"}, {"desktop-startup-id", "of X11"}}});
    call("Activate", {QVariantMap{{"desktop-startup-id", "of X11"}}});
    call("Activate", {QVariantMap()});
    call("Explode", {QVariantMap()});
    call("Open", {QStringList{"file:///a"}, QVariantMap{{"activation-token", "to open"}}});
    call("ActivateAction", {"act", QVariantList(), QVariantMap{{"activation-token", "to act"}}});
    ASSERT_TRUE(spinUntil([this] { return tokens.size() >= 5; }));
    EXPECT_THAT(tokens, ElementsAre("of Wayland", "of X11", "", "to open", "to act"));
}

TEST_F(SingleInstanceOnABus, ASecondEndsEvenIfTheFirstDoesNotAnswer) {
    FakeService hanging(bus, kName, [](const QDBusMessage&) { return QDBusMessage(); });
    EXPECT_EQ(instance.claim({}), Start::second);
}

TEST(SingleInstanceInAFolder, WhatACrashLeftIsNoFirst) {
    // No process has so high a number; that on another host is not ours to judge, but it does not answer.
    for (const std::string& host : {QSysInfo::machineHostName().toStdString(), std::string("elsewhere")}) {
        SCOPED_TRACE(host);
        const TemporaryFolder folder;
        (void)folder.write("vellomar/instance.lock", "99999999\nvellomar\n" + host + "\n\n\n");
        (void)folder.write("vellomar/instance.socket", "");
        const auto path = QString::fromStdString(folder / "vellomar");
        SingleInstance instance(noBus(), path);
        ASSERT_EQ(instance.claim({}), Start::first);
        std::vector<QString> tokens;
        QObject::connect(&instance, &SingleInstance::activated, [&](const QString& token) { tokens.push_back(token); });
        EXPECT_EQ(SingleInstance(noBus(), path).claim("second"), Start::second);
        EXPECT_TRUE(spinUntil([&] { return tokens == std::vector<QString>{"second"}; }));
    }
}

TEST(SingleInstanceInAFolder, WhereNothingCanBeLockedTheProgramStarts) {
    const TemporaryFolder folder;
    const auto file = folder.write("no folder");
    EXPECT_EQ(SingleInstance(noBus(), QString::fromStdString(file)).claim({}), Start::first);
}

TEST(SingleInstanceInAFolder, IsPrivateToTheUser) {
    const TemporaryFolder folder;
    const auto path = QString::fromStdString(folder / "vellomar");
    SingleInstance instance(noBus(), path);
    ASSERT_EQ(instance.claim({}), Start::first);
    EXPECT_EQ(QFile::permissions(path) & (QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther),
              QFile::Permissions());
}

TEST(SingleInstanceToken, IsTheOneOfTheDesktop) {
    qunsetenv("XDG_ACTIVATION_TOKEN");
    qunsetenv("DESKTOP_STARTUP_ID");
    EXPECT_EQ(SingleInstance::activationTokenOfThisStart(), "");
    qputenv("DESKTOP_STARTUP_ID", "of X11");
    EXPECT_EQ(SingleInstance::activationTokenOfThisStart(), "of X11");
    qputenv("XDG_ACTIVATION_TOKEN", "of Wayland");
    EXPECT_EQ(SingleInstance::activationTokenOfThisStart(), "of Wayland");
    qunsetenv("XDG_ACTIVATION_TOKEN");
    qunsetenv("DESKTOP_STARTUP_ID");
}

}  // namespace
}  // namespace vellomar

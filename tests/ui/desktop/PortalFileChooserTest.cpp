#include <QDBusArgument>
#include <QDBusObjectPath>
#include <optional>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/desktop/PortalFileChooser.h"
#include "ui/desktop/PrivateBus.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::FakeService;
using testing::noBus;
using testing::PrivateBus;
using testing::spinUntil;
using Paths = std::vector<std::string>;

const QString kPortal = QStringLiteral("org.freedesktop.portal.Desktop");

// Keeps what it is asked until the test answers.
class FakeChooser : public FileChooser {
public:
    void choose(const FileQuestion& question, Done whenDone) override {
        questions.push_back(question);
        done = std::move(whenDone);
    }

    std::vector<FileQuestion> questions;
    Done done;
};

// The portal: says where the request is, and has the user answer at once.
class FakePortal : public FakeService {
public:
    struct Response {
        uint code = 0;
        QStringList uris;
    };

    FakePortal(PrivateBus& bus, std::optional<Response> response)
        : FakeService(bus, kPortal, [this](const QDBusMessage& call) { return answered(call); }),
          response_(std::move(response)) {}

    bool choosesHandle = false;  // as old portals did

private:
    QDBusMessage answered(const QDBusMessage& call) {
        if (call.member() == QStringLiteral("Close")) return call.createReply();
        const auto options = qdbus_cast<QVariantMap>(call.arguments().at(2));
        const QString sender = call.service().mid(1).replace(u'.', u'_');
        const QString token = choosesHandle ? QStringLiteral("mine") : options.value("handle_token").toString();
        const QString handle = "/org/freedesktop/portal/desktop/request/" + sender + "/" + token;
        const auto reply = call.createReply(QVariant::fromValue(QDBusObjectPath(handle)));
        if (!choosesHandle) {
            respond(handle);  // ahead of the reply, which is allowed
            return reply;
        }
        send(reply);
        handle_ = handle;
        return {};
    }

public:
    void respond(const QString& handle) {
        if (!response_) return;
        auto signal = QDBusMessage::createSignal(handle, "org.freedesktop.portal.Request", "Response");
        signal << response_->code << QVariantMap{{"uris", response_->uris}};
        send(signal);
    }
    [[nodiscard]] QString chosenHandle() const { return handle_; }

private:
    std::optional<Response> response_;
    QString handle_;
};

// What a call asked for, read back from the bus.
QVariantMap optionsOf(const QDBusMessage& call) {
    return qdbus_cast<QVariantMap>(call.arguments().at(2));
}

class PortalFileChooserTest : public ::testing::Test {
protected:
    PrivateBus bus;
    FakeChooser fallback;
    PortalFileChooser chooser{bus.connect(), fallback};
    std::optional<Paths> chosen;
    FileChooser::Done keep = [this](const Paths& paths) { chosen = paths; };

    [[nodiscard]] bool waitForChoice() {
        return spinUntil([this] { return chosen.has_value(); });
    }
};

TEST_F(PortalFileChooserTest, GivesTheBytesOfAllFoldersChosen) {
    FakePortal portal(bus, {{0,
                             {"file:///home/ann/Photos", "file:///media/with%20blanks/100%25", "file:///old/caf%E9",
                              "smb://server/elsewhere"}}});
    chooser.chooseFolders("Select Source Folders", nullptr, keep);
    ASSERT_TRUE(waitForChoice());
    EXPECT_EQ(*chosen, (Paths{"/home/ann/Photos", "/media/with blanks/100%", "/old/caf\xE9"}));
    EXPECT_TRUE(fallback.questions.empty());
}

TEST_F(PortalFileChooserTest, AsksForFolders) {
    FakePortal portal(bus, {{0, {"file:///a"}}});
    for (const bool several : {true, false}) {
        SCOPED_TRACE(several);
        chosen.reset();
        if (several)
            chooser.chooseFolders("Select Source Folders", nullptr, keep);
        else
            chooser.chooseFolder("Select Source Folders", nullptr, keep);
        ASSERT_TRUE(waitForChoice());
        const auto call = portal.calls("OpenFile").back();
        EXPECT_EQ(call.path(), "/org/freedesktop/portal/desktop");
        EXPECT_EQ(call.interface(), "org.freedesktop.portal.FileChooser");
        EXPECT_EQ(call.signature(), "ssa{sv}");
        EXPECT_EQ(call.arguments().at(0).toString(), "");
        EXPECT_EQ(call.arguments().at(1).toString(), "Select Source Folders");
        const auto options = optionsOf(call);
        EXPECT_EQ(options.value("accept_label").toString(), "Select Source Folders");
        EXPECT_EQ(options.value("directory"), QVariant(true));
        EXPECT_EQ(options.value("multiple"), QVariant(several));
        EXPECT_FALSE(options.contains("filters"));
    }
}

TEST_F(PortalFileChooserTest, AsksForFilesOfAKind) {
    FakePortal portal(bus, {{0, {"file:///a.json", "file:///b.json"}}});
    chooser.chooseFiles("Import Presets", nullptr, {"JSON", {"*.json", "*.JSON"}}, keep);
    ASSERT_TRUE(waitForChoice());
    EXPECT_EQ(*chosen, (Paths{"/a.json", "/b.json"}));
    const auto options = optionsOf(portal.calls("OpenFile").back());
    EXPECT_EQ(options.value("directory"), QVariant(false));
    EXPECT_EQ(options.value("multiple"), QVariant(true));
    const auto filters = options.value("filters").value<QDBusArgument>();
    EXPECT_EQ(filters.currentSignature(), "a(sa(us))");
    QStringList found;
    for (filters.beginArray(); !filters.atEnd();) {
        filters.beginStructure();
        QString name;
        filters >> name;
        found << name;
        for (filters.beginArray(); !filters.atEnd();) {
            uint kind = 99;
            QString pattern;
            filters.beginStructure();
            filters >> kind >> pattern;
            filters.endStructure();
            found << QString::number(kind) + " " + pattern;
        }
        filters.endArray();
        filters.endStructure();
    }
    EXPECT_EQ(found, (QStringList{"JSON", "0 *.json", "0 *.JSON"}));
}

TEST_F(PortalFileChooserTest, AsksForAFileToSave) {
    FakePortal portal(bus, {{0, {"file:///home/ann/My%20preset.json"}}});
    chooser.chooseSaveFile("Export Preset", nullptr, "My preset.json", {"JSON", {"*.json"}}, keep);
    ASSERT_TRUE(waitForChoice());
    EXPECT_EQ(*chosen, (Paths{"/home/ann/My preset.json"}));
    ASSERT_EQ(portal.calls("SaveFile").size(), 1U);
    const auto options = optionsOf(portal.calls("SaveFile").back());
    EXPECT_EQ(options.value("current_name").toString(), "My preset.json");
    EXPECT_TRUE(options.contains("filters"));
    EXPECT_FALSE(options.contains("multiple"));
    EXPECT_FALSE(options.contains("directory"));
}

TEST_F(PortalFileChooserTest, WhatIsDismissedGivesNothing) {
    for (const uint code : {1U, 2U}) {
        SCOPED_TRACE(code);
        chosen.reset();
        FakePortal portal(bus, {{code, {"file:///a"}}});
        chooser.chooseFolders("Select", nullptr, keep);
        ASSERT_TRUE(waitForChoice());
        EXPECT_EQ(*chosen, Paths());
    }
    EXPECT_TRUE(fallback.questions.empty());
}

TEST_F(PortalFileChooserTest, HearsAPortalThatPutsTheRequestElsewhere) {
    FakePortal portal(bus, {{0, {"file:///a"}}});
    portal.choosesHandle = true;
    chooser.chooseFolder("Select", nullptr, keep);
    // When the chooser listens there cannot be seen from outside, so the answer comes again and again.
    ASSERT_TRUE(spinUntil([&] {
        if (!portal.chosenHandle().isEmpty()) portal.respond(portal.chosenHandle());
        return chosen.has_value();
    }));
    EXPECT_EQ(*chosen, Paths{"/a"});
}

TEST_F(PortalFileChooserTest, TheFallbackIsAskedTheSameWhereThePortalFails) {
    FakeService portal(bus, kPortal, [](const QDBusMessage& call) {
        return call.createErrorReply(QDBusError::UnknownInterface, "No such interface");
    });
    chooser.chooseSaveFile("Export Preset", nullptr, "a.json", {"JSON", {"*.json"}}, keep);
    ASSERT_TRUE(spinUntil([this] { return !fallback.questions.empty(); }));
    const auto& question = fallback.questions.front();
    EXPECT_EQ(question.kind, FileQuestion::Kind::saveFile);
    EXPECT_EQ(question.prompt, "Export Preset");
    EXPECT_EQ(question.suggestedName, "a.json");
    EXPECT_EQ(question.filter.patterns, QStringList{"*.json"});
    EXPECT_FALSE(chosen);
    fallback.done({"/saved"});
    EXPECT_EQ(*chosen, Paths{"/saved"});
}

TEST_F(PortalFileChooserTest, TheFallbackIsAskedWithoutAPortal) {
    chooser.chooseFolder("Select", nullptr, keep);
    EXPECT_TRUE(spinUntil([this] { return !fallback.questions.empty(); }));
}

TEST_F(PortalFileChooserTest, TheFallbackIsAskedWithoutABus) {
    PortalFileChooser alone(noBus(), fallback);
    alone.chooseFolder("Select", nullptr, keep);
    EXPECT_TRUE(spinUntil([this] { return !fallback.questions.empty(); }));
}

TEST_F(PortalFileChooserTest, TheFallbackIsAskedWhenThePortalVanishes) {
    auto portal = std::make_unique<FakePortal>(bus, std::nullopt);
    chooser.chooseFolder("Select", nullptr, keep);
    ASSERT_TRUE(spinUntil([&] { return !portal->calls("OpenFile").empty(); }));
    portal.reset();
    EXPECT_TRUE(spinUntil([this] { return !fallback.questions.empty(); }));
}

TEST_F(PortalFileChooserTest, ThereIsOneDialogAtATime) {
    FakePortal portal(bus, std::nullopt);
    int answers = 0;
    chooser.chooseFolder("Select", nullptr, [&](const Paths&) { ++answers; });
    ASSERT_TRUE(spinUntil([&] { return !portal.calls("OpenFile").empty(); }));
    chooser.chooseFolder("Again", nullptr, keep);
    EXPECT_EQ(chosen, Paths());
    EXPECT_EQ(answers, 0);
    EXPECT_EQ(portal.calls("OpenFile").size(), 1U);
}

TEST_F(PortalFileChooserTest, ThereIsOneDialogAtATimeEvenIfItIsTheFallbacks) {
    chooser.chooseFolder("Select", nullptr, [](const Paths&) {});
    ASSERT_TRUE(spinUntil([this] { return !fallback.questions.empty(); }));
    chooser.chooseFolder("Again", nullptr, keep);
    EXPECT_EQ(chosen, Paths());
    EXPECT_EQ(fallback.questions.size(), 1U);
    fallback.done({"/a"});
    chooser.chooseFolder("Once more", nullptr, keep);
    EXPECT_TRUE(spinUntil([this] { return fallback.questions.size() == 2; }));
}

TEST_F(PortalFileChooserTest, TakesItsDialogAway) {
    FakePortal portal(bus, std::nullopt);
    auto leaving = std::make_unique<PortalFileChooser>(bus.connect(), fallback);
    leaving->chooseFolder("Select", nullptr, keep);
    ASSERT_TRUE(spinUntil([&] { return !portal.calls("OpenFile").empty(); }));
    const auto token = optionsOf(portal.calls("OpenFile").back()).value("handle_token").toString();
    leaving.reset();
    ASSERT_TRUE(spinUntil([&] { return !portal.calls("Close").empty(); }));
    EXPECT_TRUE(portal.calls("Close").back().path().endsWith("/" + token));
    EXPECT_FALSE(chosen);
}

TEST_F(PortalFileChooserTest, OutlivedByTheFallbackItIsSilent) {
    auto leaving = std::make_unique<PortalFileChooser>(noBus(), fallback);
    leaving->chooseFolder("Select", nullptr, keep);
    ASSERT_TRUE(spinUntil([this] { return !fallback.questions.empty(); }));
    leaving.reset();
    fallback.done({"/a"});
    EXPECT_FALSE(chosen);
}

TEST(PortalWindowName, IsKnownOnX11) {
    EXPECT_EQ(portalWindowName("xcb", 0x4A00007), "x11:4a00007");
    EXPECT_EQ(portalWindowName("wayland", 7), "");
    EXPECT_EQ(portalWindowName("offscreen", 7), "");
}

}  // namespace
}  // namespace vellomar

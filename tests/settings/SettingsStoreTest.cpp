#include <QCoreApplication>
#include <QStringList>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "settings/SettingsFile.h"
#include "settings/SettingsStore.h"
#include "support/ScopedOrdinaryUser.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::contentOf;
using ::testing::ElementsAre;
using testing::exists;
using testing::SettingsFile;

TEST(SettingsStore, WithoutAFileEverythingIsAsByDefault) {
    SettingsFile file;
    const auto store = file.open();
    EXPECT_FALSE(store->boolean("a"));
    EXPECT_TRUE(store->boolean("a", true));
    EXPECT_EQ(store->integer("a", 7), 7);
    EXPECT_EQ(store->text("a"), "");
    EXPECT_EQ(store->bytes("a"), std::nullopt);
    EXPECT_EQ(store->value("a"), std::nullopt);
    EXPECT_FALSE(exists(file.path())) << "looking writes nothing";
}

TEST(SettingsStore, KeepsEachTypeFromOneStartToTheNext) {
    SettingsFile file;
    {
        const auto store = file.open();
        store->setValue("on", true);
        store->setValue("number", -12);
        store->setValue("text", "Zürich \"quoted\" \\ and\nmore");
        store->setBytes("bytes", std::string_view("\x00\xFF\x80", 3));
    }
    const auto store = file.open();
    EXPECT_TRUE(store->boolean("on"));
    EXPECT_EQ(store->integer("number"), -12);
    EXPECT_EQ(store->text("text"), "Zürich \"quoted\" \\ and\nmore");
    EXPECT_EQ(store->bytes("bytes"), std::string("\x00\xFF\x80", 3));
}

TEST(SettingsStore, KeepsNamesThatAreNotUtf8) {
    SettingsFile file;
    const std::string path = "/photos/caf\xE9/\xFF";
    file.open()->setValue("path", path);
    EXPECT_EQ(file.open()->text("path"), path);
    EXPECT_NE(contentOf(file.path()).find(R"(caf\udce9)"), std::string::npos);
}

TEST(SettingsStore, AChangeIsInForceAtOnceAndInTheFileSoon) {
    SettingsFile file;
    const auto store = file.open();
    store->setValue("a", 1);
    EXPECT_EQ(store->integer("a"), 1);
    store->waitUntilTried();
    EXPECT_EQ(file.content(), (Json{{"a", 1}}));
    store->setValue("a", 2);
    store->remove("b");
    store->setValue("c", 3);
    store->remove("c");
    store->waitUntilTried();
    EXPECT_EQ(file.content(), (Json{{"a", 2}}));
    EXPECT_EQ(store->value("c"), std::nullopt);
}

TEST(SettingsStore, TellsOfEachChangeOnce) {
    SettingsFile file;
    const auto store = file.open();
    QStringList told;
    QObject::connect(store.get(), &SettingsStore::changed, [&](const QString& key) { told << key; });
    store->setValue("a", 1);
    store->setValue("a", 1);
    store->setValue("a", 2);
    store->remove("a");
    store->remove("a");
    EXPECT_EQ(told, QStringList({"a", "a", "a"}));
}

TEST(SettingsStore, AValueOfAnotherTypeReadsAsTheDefault) {
    SettingsFile file(R"({"b": 1, "i": "4", "t": true, "y": "AAAA", "whole": 4.0, "part": 4.5, "huge": 5000000000,
                          "n": null})");
    const auto store = file.open();
    EXPECT_TRUE(store->boolean("b", true));
    EXPECT_FALSE(store->boolean("b", false));
    EXPECT_EQ(store->integer("i", 9), 9);
    EXPECT_EQ(store->integer("t", 9), 9);
    EXPECT_EQ(store->text("t"), "");
    EXPECT_EQ(store->bytes("y"), std::nullopt);
    EXPECT_EQ(store->integer("whole", 9), 4);
    EXPECT_EQ(store->integer("part", 9), 9);
    EXPECT_EQ(store->integer("huge", 9), 9);
    EXPECT_EQ(store->text("n"), "");
}

TEST(SettingsStore, WhatANewerVersionKeepsStays) {
    SettingsFile file(R"({"opt_newThing": {"deep": [1, 2.5, null]}, "opt_dryRun": true})");
    {
        const auto store = file.open();
        store->setValue("opt_dryRun", false);
    }
    EXPECT_EQ(file.content(), (Json{{"opt_newThing", {{"deep", {1, 2.5, nullptr}}}}, {"opt_dryRun", false}}));
}

TEST(SettingsStore, WhatAnotherProcessWroteMeanwhileStays) {
    SettingsFile file;
    const auto one = file.open();
    const auto other = file.open();
    one->setValue("a", 1);
    one->waitUntilTried();
    other->setValue("b", 2);
    other->waitUntilTried();
    EXPECT_EQ(file.content(), (Json{{"a", 1}, {"b", 2}}));
}

TEST(SettingsStore, AFileThatCannotBeUnderstoodIsPutAside) {
    for (const auto* damage : {"{\"a\": tru", "[1, 2]", "\xFF\xFE garbage", "[General]\na=1\n"}) {
        SCOPED_TRACE(damage);
        SettingsFile file(damage);
        {
            const auto store = file.open();
            EXPECT_EQ(store->damagedFile(), file.path() + ".damaged");
            EXPECT_EQ(store->integer("a", 5), 5);
            store->setValue("a", 6);
        }
        EXPECT_EQ(contentOf(file.path() + ".damaged"), damage);
        const auto again = file.open();
        EXPECT_EQ(again->integer("a"), 6);
        EXPECT_EQ(again->damagedFile(), "");
    }
}

TEST(SettingsStore, ASecondDamagedFileDoesNotReplaceTheFirst) {
    SettingsFile file("first");
    static_cast<void>(file.open());
    file.folder().write("vellomar/settings.json", "second");
    EXPECT_EQ(file.open()->damagedFile(), file.folder() / "vellomar/settings.json (1).damaged");
    EXPECT_EQ(contentOf(file.path() + ".damaged"), "first");
}

TEST(SettingsStore, AnEmptyFileIsNoDamage) {
    SettingsFile file("");
    const auto store = file.open();
    EXPECT_EQ(store->damagedFile(), "");
    store->setValue("a", 1);
    store->waitUntilTried();
    EXPECT_EQ(file.content(), (Json{{"a", 1}}));
}

// What is asked of the writer's thread is told by the event loop.
void waitForNews(SettingsStore& store) {
    store.waitUntilTried();
    QCoreApplication::sendPostedEvents();
}

TEST(SettingsStore, AFileThatCannotBeWrittenIsToldAndTriedAgain) {
    SettingsFile file;
    const testing::ScopedOrdinaryUser user(file.folder().path());
    const auto folder = file.folder().makeFolder("vellomar");
    fs::permissions(folder, fs::perms(0555));
    const auto store = file.open();
    int told = 0;
    QObject::connect(store.get(), &SettingsStore::cannotSaveChanged, [&] { ++told; });
    store->setValue("a", 2);
    waitForNews(*store);
    EXPECT_TRUE(store->cannotSave());
    EXPECT_EQ(told, 1);
    EXPECT_EQ(store->integer("a"), 2) << "it is in force all the same";
    EXPECT_FALSE(exists(file.path()));

    fs::permissions(folder, fs::perms(0755));
    store->setValue("b", 3);
    waitForNews(*store);
    EXPECT_FALSE(store->cannotSave());
    EXPECT_EQ(told, 2);
    EXPECT_EQ(file.content(), (Json{{"a", 2}, {"b", 3}})) << "the change that failed came along";
}

TEST(SettingsStore, ManyChangesAtOnceAllArrive) {
    SettingsFile file;
    constexpr int kCount = 500;
    {
        const auto store = file.open();
        for (int i = 0; i < kCount; ++i)
            store->setValue("key" + std::to_string(i % 7), i);
    }
    const auto store = file.open();
    for (int i = kCount - 7; i < kCount; ++i)
        EXPECT_EQ(store->integer("key" + std::to_string(i % 7)), i);
}

TEST(SettingsStore, IsFoundByXdgOrInTheHomeFolder) {
    const std::string home = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "";
    const std::string config = std::getenv("XDG_CONFIG_HOME") != nullptr ? std::getenv("XDG_CONFIG_HOME") : "";
    ::setenv("HOME", "/home/someone", 1);
    ::setenv("XDG_CONFIG_HOME", "/somewhere/else/", 1);
    EXPECT_EQ(SettingsStore::defaultFile(), "/somewhere/else/vellomar/settings.json");
    ::setenv("XDG_CONFIG_HOME", "relative", 1);
    EXPECT_EQ(SettingsStore::defaultFile(), "/home/someone/.config/vellomar/settings.json");
    ::unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(SettingsStore::defaultFile(), "/home/someone/.config/vellomar/settings.json");
    ::unsetenv("HOME");
    EXPECT_EQ(SettingsStore::defaultFile(), "");
    if (!home.empty()) ::setenv("HOME", home.c_str(), 1);
    if (!config.empty()) ::setenv("XDG_CONFIG_HOME", config.c_str(), 1);
}

}  // namespace
}  // namespace vellomar

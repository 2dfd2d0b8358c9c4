#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/LinuxFileSystem.h"
#include "support/Morning.h"
#include "support/ScopedOrdinaryUser.h"
#include "support/ScopedTimeZone.h"
#include "support/TemporaryFolder.h"
#include "undo/ManifestFiles.h"
#include "undo/ManifestText.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::contentOf;
using ::testing::ElementsAre;
using testing::exists;
using ::testing::IsEmpty;
using testing::ScopedTimeZone;
using testing::TemporaryFolder;

UndoManifest manifestOf(std::string runID) {
    UndoManifest manifest{std::move(runID), "/s", "/d", {}};
    manifest.appendUndoEntry({UndoEntry::OpType::copy, "/s/a.jpg", "/d/a.jpg", std::nullopt, kMorning});
    return manifest;
}

std::string textOf(std::string runID) {
    return manifestText(manifestOf(std::move(runID)));
}

class ManifestFiles : public ::testing::Test {
protected:
    std::vector<std::string> listed() {
        std::vector<std::string> runIDs;
        for (const auto& manifest : loadManifests(fileSystem, folder.path()))
            runIDs.push_back(manifest.runID);
        return runIDs;
    }

    LinuxFileSystem fileSystem;
    TemporaryFolder folder;
};

TEST_F(ManifestFiles, AreNamedByTheLocalTime) {
    struct Case {
        const char* zone;
        std::string_view name;
    };
    constexpr Case kCases[] = {
        {"UTC", "_vellomar_undo_2024-06-14_094107.json"},
        {"Europe/Berlin", "_vellomar_undo_2024-06-14_114107.json"},
        {"America/Los_Angeles", "_vellomar_undo_2024-06-14_024107.json"},
        {"Pacific/Auckland", "_vellomar_undo_2024-06-14_214107.json"},
    };
    for (const auto& [zone, name] : kCases) {
        const ScopedTimeZone scope(zone);
        EXPECT_EQ(manifestFileName(kMorning), name);
        EXPECT_EQ(manifestFileName(kMorning + std::chrono::milliseconds(999)), name);
    }
}

TEST_F(ManifestFiles, LieDirectlyInTheFolder) {
    const ScopedTimeZone utc("UTC");
    EXPECT_EQ(saveManifest(fileSystem, manifestOf("r"), folder.path(), kMorning),
              "_vellomar_undo_2024-06-14_094107.json");
    EXPECT_EQ(contentOf(folder / "_vellomar_undo_2024-06-14_094107.json"), textOf("r"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
}

TEST_F(ManifestFiles, TheLaterOfOneSecondReplacesTheEarlier) {
    const auto first = saveManifest(fileSystem, manifestOf("first"), folder.path(), kMorning);
    const auto second =
        saveManifest(fileSystem, manifestOf("second"), folder.path(), kMorning + std::chrono::milliseconds(500));
    EXPECT_EQ(first, second);
    EXPECT_THAT(listed(), ElementsAre("second"));
}

TEST_F(ManifestFiles, AFailureToSaveIsSilent) {
    EXPECT_EQ(saveManifest(fileSystem, manifestOf("r"), folder / "missing", kMorning), manifestFileName(kMorning));
    EXPECT_FALSE(exists(folder / "missing"));
}

TEST_F(ManifestFiles, AreListedFromTheNewestName) {
    folder.write("_vellomar_undo_2024-06-14_114312.json", textOf("second"));
    folder.write("_vellomar_undo_2023-12-31_235959.json", textOf("oldest"));
    folder.write("_vellomar_undo_2024-06-15_000000.json", textOf("newest"));
    folder.write("_vellomar_undo_2024-06-14_114311.json", textOf("third"));
    folder.write("_vellomar_undo_zebra.json", textOf("by name alone"));
    EXPECT_THAT(listed(), ElementsAre("by name alone", "newest", "second", "third", "oldest"));
}

TEST_F(ManifestFiles, OtherNamesAreLeftOut) {
    for (const char* name :
         {"_vellomar_undo_2024.JSON", "_vellomar_undo_2024.Json", "_vellomar_undo_2024.json.bak", "_vellomar_undo_2024",
          "_vellomar_undo_json", "._vellomar_undo_2024.json", "_Vellomar_undo_2024.json", "vellomar_undo_2024.json",
          "my_vellomar_undo_2024.json", "below/_vellomar_undo_2024.json"})
        folder.write(name, textOf(name));
    EXPECT_THAT(listed(), IsEmpty());
    folder.write("_vellomar_undo_.json", textOf("without a time"));
    EXPECT_THAT(listed(), ElementsAre("without a time"));
}

TEST_F(ManifestFiles, WhatCannotBeReadIsPassedOver) {
    folder.write("_vellomar_undo_1.json", textOf("good"));
    folder.write("_vellomar_undo_2.json", "not JSON");
    folder.write("_vellomar_undo_3.json", "");
    auto renamed = textOf("renamed");
    renamed.replace(renamed.find("copy"), 4, "rename");
    folder.write("_vellomar_undo_4.json", renamed);
    folder.makeFolder("_vellomar_undo_5.json");
    fs::create_symlink(folder / "nowhere", folder / "_vellomar_undo_6.json");
    ASSERT_EQ(mkfifo((folder / "_vellomar_undo_7.json").c_str(), 0600), 0);
    EXPECT_THAT(listed(), ElementsAre("good"));
    const auto newest = loadNewestManifest(fileSystem, folder.path());
    ASSERT_TRUE(newest.has_value());
    EXPECT_EQ(newest->runID, "good");
}

TEST_F(ManifestFiles, WhatMayNotBeReadIsPassedOver) {
    folder.write("_vellomar_undo_1.json", textOf("good"));
    fs::permissions(folder.write("_vellomar_undo_2.json", textOf("closed")), fs::perms::none);
    const testing::ScopedOrdinaryUser user(folder.path());
    EXPECT_THAT(listed(), ElementsAre("good"));
}

TEST_F(ManifestFiles, AnEmptyManifestIsListed) {
    folder.write("_vellomar_undo_1.json", manifestText({"empty", "/s", "/d", {}}));
    EXPECT_THAT(listed(), ElementsAre("empty"));
}

TEST_F(ManifestFiles, AFolderThatCannotBeListedHasNone) {
    EXPECT_THAT(loadManifests(fileSystem, folder / "missing"), IsEmpty());
    EXPECT_THAT(loadManifests(fileSystem, folder.write("file")), IsEmpty());
    EXPECT_EQ(loadNewestManifest(fileSystem, folder / "missing"), std::nullopt);
    EXPECT_EQ(loadNewestManifest(fileSystem, folder.path()), std::nullopt);
}

TEST_F(ManifestFiles, TheNewestIsTheFirstOfTheList) {
    folder.write("_vellomar_undo_2.json", textOf("new"));
    folder.write("_vellomar_undo_1.json", textOf("old"));
    EXPECT_EQ(loadNewestManifest(fileSystem, folder.path()), manifestOf("new"));
}

TEST_F(ManifestFiles, AreImportedUnderAnyName) {
    for (const char* name : {"renamed.txt", "_vellomar_undo_1.JSON",
                             "br\xFC"
                             "cke"})
        EXPECT_EQ(importManifest(fileSystem, folder.write(name, textOf(name))), manifestOf(name)) << name;
}

TEST_F(ManifestFiles, AFailedImportIsToldToTheUser) {
    folder.write("broken.json", "{\"runID\": 1}");
    folder.makeFolder("folder");
    for (const std::string name : {"broken.json", "missing.json", "folder"}) {
        const auto imported = importManifest(fileSystem, folder / name);
        ASSERT_FALSE(imported.has_value()) << name;
        EXPECT_EQ(imported.error().description, "Could not read " + name + " — is it a valid Vellomar undo file?");
    }
}

TEST(ImportedManifests, StartWithoutASelection) {
    const ImportedManifests imported;
    EXPECT_THAT(imported.list(), IsEmpty());
    EXPECT_EQ(imported.selected(), nullptr);
}

TEST(ImportedManifests, TheJustImportedOneIsSelected) {
    ImportedManifests imported;
    imported.add(manifestOf("first"));
    imported.add(manifestOf("second"));
    EXPECT_THAT(imported.list(), ElementsAre(manifestOf("first"), manifestOf("second")));
    ASSERT_NE(imported.selected(), nullptr);
    EXPECT_EQ(*imported.selected(), manifestOf("second"));
}

TEST(ImportedManifests, ARunIsListedOnceAndSelectedAgain) {
    ImportedManifests imported;
    imported.add(manifestOf("first"));
    imported.add(manifestOf("second"));
    auto other = manifestOf("first");
    other.destRoot = "/elsewhere";
    imported.add(other);
    EXPECT_THAT(imported.list(), ElementsAre(manifestOf("first"), manifestOf("second")));
    ASSERT_NE(imported.selected(), nullptr);
    EXPECT_EQ(*imported.selected(), other);
    imported.add(manifestOf("FIRST"));
    EXPECT_EQ(imported.list().size(), 3U);
}

}  // namespace
}  // namespace vellomar

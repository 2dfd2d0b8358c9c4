#pragma once

#include <cerrno>
#include <future>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "settings/SettingsFile.h"
#include "settings/SourceList.h"
#include "support/ForwardingFileSystem.h"
#include "support/TemporaryFolder.h"
#include "ui/LiveEngine.h"
#include "ui/ScriptedFileChooser.h"
#include "ui/dates/DateCorrection.h"
#include "ui/dates/ShiftUnderWay.h"

namespace vellomar::testing {

// Keeps the listing of `gate` waiting until it is opened, refuses that of `locked`, and remembers what was listed.
class GatedListing final : public ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;

    [[nodiscard]] Expected<std::unique_ptr<Directory>> openDirectory(const std::string& path, bool follow) override {
        {
            const std::lock_guard guard(lock_);
            listed_.push_back(path);
        }
        if (path == locked) return systemFailure(EACCES);
        if (path == gate) {
            reached.set_value();
            opened.get_future().wait();
        }
        return real().openDirectory(path, follow);
    }

    [[nodiscard]] std::vector<std::string> listed() {
        const std::lock_guard guard(lock_);
        return listed_;
    }

    std::string gate;
    std::string locked;
    std::promise<void> reached;
    std::promise<void> opened;

private:
    std::mutex lock_;
    std::vector<std::string> listed_;  // under lock_
};

// The sheet's model over a source with two files that can be shifted. Shifts last as long as a test wants.
class DateCorrectionFixture : public ::testing::Test {
protected:
    DateCorrectionFixture() {
        disk.write("in/a.jpg");
        disk.write("in/b.MOV");
        disk.write("in/note.txt");
        sources.add(disk / "in");
    }

    // Until the files of the folders as they are now are counted.
    QString counted() {
        EXPECT_TRUE(spinUntil([this] { return dates.fileCount().has_value(); }));
        return dates.countText();
    }

    [[nodiscard]] QStringList shownFolders() const {
        QStringList paths;
        for (const auto& row : dates.folders())
            paths << row.toMap().value("path").toString();
        return paths;
    }

    void addSources(int count) {
        for (int i = 0; i < count; ++i)
            sources.add(disk.makeFolder("source " + std::to_string(i)));
        dates.noteSources();
    }

    void endShift() {
        under.letGo();
        under.waitForEnd();
    }

    TemporaryFolder disk{TemporaryFolder::Where::inMemory};
    LinuxFileSystem real;
    GatedListing fileSystem{real};
    SettingsFile file;
    std::unique_ptr<SettingsStore> settings = file.open();
    SourceList sources{*settings};
    ScriptedFileChooser chooser;
    LiveEngine engine;
    ShiftUnderWay under;
    BackgroundWork background;
    DateCorrection dates{{sources, *engine, engine.events(), under.shift(), fileSystem, chooser, background}};
};

}  // namespace vellomar::testing

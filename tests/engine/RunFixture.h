// What tests of whole runs share.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "engine/model/Options.h"
#include "support/EngineHarness.h"
#include "support/ForwardingFileSystem.h"
#include "support/ManualClock.h"
#include "support/TemporaryFolder.h"

namespace vellomar {

// A source and a destination folder, and an engine whose clock stands still at 2024-06-14 09:41:07 UTC over a disk
// without birth times, so that every line of a log can be foretold.
class RunTest : public ::testing::Test {
protected:
    // A real run that copies images, without ExifTool.
    [[nodiscard]] static Options copyOptions();
    [[nodiscard]] static Options moveOptions();
    [[nodiscard]] static Options dryOptions();

    // A file below the source folder, dated at noon UTC of a day in 2023 by the file system; returns its path.
    std::string photo(const std::string& relative, std::string_view content) const;

    void run(const Options& options) { harness.run({source}, dest, options); }

    [[nodiscard]] const std::vector<std::string>& log() const { return harness.observer.allLogLines; }

    // The log without what stands before the first file and behind the last, and without the decisions.
    [[nodiscard]] std::vector<std::string> fileLines() const;

    [[nodiscard]] bool hasLine(const std::string& line) const;

    testing::TemporaryFolder folder{testing::TemporaryFolder::Where::inMemory};
    std::string source = folder.makeFolder("source");
    std::string dest = folder.makeFolder("dest");
    LinuxFileSystem disk;
    testing::WithoutBirthTimes fileSystem{disk};
    testing::ManualClock clock{instantFromUnixSeconds(std::int64_t{1'718'358'067})};
    testing::EngineHarness harness{{.fileSystem = &fileSystem, .clock = &clock}};
};

// Paths of all files below `folder`, relative to it, sorted.
[[nodiscard]] std::vector<std::string> filesBelow(const std::string& folder);

}  // namespace vellomar

#pragma once

#include <utility>

#include "engine/PublishedState.h"
#include "ui/main/EngineEvents.h"

namespace vellomar::testing {

// Published statistics without an engine behind them.
class PublishedStats {
public:
    void publish(LibraryStats stats) {
        state.libraryStats = std::move(stats);
        events.fieldChanged(PublishedField::libraryStats);
    }

    PublishedState state;
    EngineEvents events;
};

// A thousand files of two years, two cameras, three sources of dates and two types.
[[nodiscard]] inline LibraryStats fullStats() {
    LibraryStats stats;
    stats.totalFiles = 1000;
    stats.totalBytes = 12'345'678'901;
    stats.byYear = {{"2019", 250}, {"2023", 750}};
    stats.byCamera = {{"D850", 100}, {"X100V", 600}};
    stats.dateSourceBreakdown = {{"EXIF DateTimeOriginal", 700}, {"FS ModificationDate", 100}, {"Filename", 200}};
    stats.byExtension = {{"arw", 300}, {"jpg", 700}};
    return stats;
}

}  // namespace vellomar::testing

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dates/FolderDates.h"
#include "naming/EventFolders.h"
#include "platform/Instant.h"

namespace vellomar {

// What a file's folder says about it; the same for every file of the folder.
struct FolderEvidence {
    MeaningfulFolders meaningful;
    std::optional<FolderYearMonth> yearMonth;
};

// All that FolderEvidence is made from. Holds no copies: what it names must outlive it.
struct FolderQuestion {
    std::string_view relativeFolder;             // path below the source, see relativeFolderOf()
    const std::vector<FolderRenameRule>& rules;  // in the user's order
    bool secretFloppyMode = false;
    bool parseMonthWords = true;
    Instant now;  // only its year counts, in local time
};

// Remembers the evidence of the last folder. A walk delivers the files of a folder one after another, so one folder is
// enough. An answer is given again only while everything that it was made from is unchanged; a cache may thus serve
// any number of runs. One thread at a time.
class FolderEvidenceCache {
public:
    // Valid until the next call.
    [[nodiscard]] const FolderEvidence& evidenceFor(const FolderQuestion& question);

private:
    struct Remembered {
        std::string relativeFolder;
        std::vector<FolderRenameRule> rules;
        bool secretFloppyMode;
        bool parseMonthWords;
        int currentYear;
        FolderEvidence evidence;

        [[nodiscard]] bool answers(const FolderQuestion& question, int yearNow) const;
    };

    std::optional<Remembered> last_;
};

}  // namespace vellomar

#include "dates/CandidateGathering.h"

#include <chrono>
#include <utility>

#include "dates/FilenameDates.h"
#include "platform/LocalTime.h"
#include "platform/Path.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;

constexpr int kEmbeddedImageScore = 95;
constexpr int kFolderMonthScore = 40;
constexpr int kFolderYearScore = 35;
constexpr int kModificationScore = 20;
constexpr int kCreationScore = 15;
constexpr int kScrambledScore = 5;
constexpr auto kFileDatesMayDiffer = 180 * 24h;
constexpr std::size_t kUsualCandidates = 6;

// Collects the candidates of one file; one function for each kind of clue.
class Gathering {
public:
    Gathering(const CandidateSources& sources, const std::string& path) : sources_(sources), path_(path) {
        candidates_.reserve(kUsualCandidates);
    }

    void addImageMetadata() {
        if (mayOpenFile()) add(sources_.metadataReader->sidecarCandidate(path_));
        addExifToolDate();
        if (!mayOpenFile()) return;
        if (auto found = sources_.metadataReader->readImageDate(path_))
            add(DateCandidate{found->date, std::move(found->reason), kEmbeddedImageScore});
    }

    void addVideoMetadata() {
        addExifToolDate();
        if (mayOpenFile()) add(sources_.metadataReader->readVideoDate(path_));
    }

    void addName(Instant now) { add(filenameCandidate(pathStem(path_), now)); }

    void addFolder(const FolderYearMonth& folder) {
        const auto date = middleOf(folder);
        if (!date) return;
        if (folder.month)
            add(DateCandidate{*date, "Folder-derived Y/M", kFolderMonthScore});
        else
            add(DateCandidate{*date, "Folder-derived Y", kFolderYearScore});
    }

    void addFileDates() {
        if (isNetwork()) return;
        const auto status = sources_.fileSystem.status(path_);
        if (!status) return;
        const auto created = status->created;
        const auto modified = status->modified;
        const bool fsDatesDisagree = created && std::chrono::abs(*created - modified) > kFileDatesMayDiffer;
        if (created)
            add(DateCandidate{*created, "FS CreationDate", fsDatesDisagree ? kScrambledScore : kCreationScore});
        add(DateCandidate{modified, "FS ModificationDate", fsDatesDisagree ? kScrambledScore : kModificationScore});
    }

    std::vector<DateCandidate> candidates() && { return std::move(candidates_); }

private:
    [[nodiscard]] bool isNetwork() const { return sources_.options.storageIsNetwork; }
    [[nodiscard]] bool mayOpenFile() const { return !isNetwork() && sources_.metadataReader != nullptr; }

    void add(std::optional<DateCandidate> candidate) {
        if (candidate) candidates_.push_back(*std::move(candidate));
    }

    void addExifToolDate() {
        if (const auto told = sources_.exifDates.find(path_); told != sources_.exifDates.end()) add(told->second);
    }

    const CandidateSources& sources_;
    const std::string& path_;
    std::vector<DateCandidate> candidates_;
};

}  // namespace

std::optional<Instant> middleOf(const FolderYearMonth& yearMonth) {
    constexpr int kJune = 6;
    return strictLocalInstant(
        {.year = yearMonth.year, .month = yearMonth.month.value_or(kJune), .day = 15, .hour = 12});
}

std::vector<DateCandidate> gatherDateCandidates(const CandidateSources& sources, const std::string& path, FileKind kind,
                                                const std::optional<FolderYearMonth>& folder, Instant now) {
    Gathering gathering(sources, path);
    if (kind == FileKind::image) gathering.addImageMetadata();
    if (kind == FileKind::video) gathering.addVideoMetadata();
    gathering.addName(now);
    if (folder) gathering.addFolder(*folder);
    gathering.addFileDates();
    return std::move(gathering).candidates();
}

}  // namespace vellomar

#include "engine/SourceScan.h"

#include <optional>
#include <thread>
#include <utility>

#include "engine/model/FileKind.h"
#include "engine/model/JunkFiles.h"
#include "platform/FolderWalk.h"
#include "platform/Path.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

constexpr std::size_t kReportInterval = 500;
constexpr std::size_t kExtensionTooLongForAFile = 11;

bool overlap(const std::vector<std::string>& sources) {
    for (std::size_t i = 0; i < sources.size(); ++i)
        for (std::size_t j = 0; j < sources.size(); ++j)
            if (i != j && isWithin(sources[i], sources[j])) return true;
    return false;
}

// A name in lower case, as all tables compare it, with its extension.
class LowercasedName {
public:
    explicit LowercasedName(std::string_view name)
        : text_(lowercased(name)), extensionLength_(pathExtension(text_).size()) {}

    [[nodiscard]] std::string_view extension() const {
        return std::string_view(text_).substr(text_.size() - extensionLength_);
    }
    [[nodiscard]] bool isJunk() const { return isJunkFile(text_, extension()); }

private:
    std::string text_;
    std::size_t extensionLength_;
};

class Scan {
public:
    Scan(const std::vector<std::string>& sources, const Options& options,
         const std::unordered_set<std::string>& skipPaths, const ScanReports& reports)
        : options_(options), skipPaths_(skipPaths), reports_(reports), result_{{}, FileSizes(overlap(sources)), {}} {}

    void walk(FileSystem& fileSystem, const std::string& source) {
        auto opened = FolderWalk::open(fileSystem, source);
        if (!opened) {
            reports_.log("Failed to enumerate source: " + source);
            return;
        }
        sourceRoot_ = std::make_shared<const std::string>(source);
        while (const auto entry = opened->next())
            options_.storageIsNetwork ? takeByName(*opened, *entry) : takeByStatus(*opened, *entry);
    }

    [[nodiscard]] ScanResult result() && { return std::move(result_); }

private:
    void takeByStatus(FolderWalk& walk, const FolderWalk::Entry& entry) {
        if (entry.type != FileType::regular) return;
        const auto status = walk.statusOf(entry);
        if (!status || status->type != FileType::regular) return;
        const LowercasedName name(entry.name);
        if (!name.isJunk()) take(entry, name, status->size);
    }

    void takeByName(FolderWalk& walk, const FolderWalk::Entry& entry) {
        const LowercasedName name(entry.name);
        const auto extension = name.extension();
        if (extension.empty() || name.isJunk() || characterCount(extension) >= kExtensionTooLongForAFile) return;
        const auto status = walk.statusOf(entry);
        const bool hasSize = status && status->type != FileType::directory;
        take(entry, name, hasSize ? std::optional(status->size) : std::nullopt);
    }

    void take(const FolderWalk::Entry& entry, const LowercasedName& name, std::optional<std::int64_t> size) {
        if (size) result_.fileSizes.record(entry.folder, entry.name, *size);
        auto path = entry.path();
        if (skipPaths_.contains(path)) return;
        if (!countIfIncluded(fileKindOfExtension(name.extension()))) return;
        result_.files.push_back({std::move(path), sourceRoot_, size});
        if (result_.files.size() % kReportInterval == 0) {
            reports_.filesFound(result_.files.size());
            std::this_thread::yield();
        }
    }

    bool countIfIncluded(FileKind kind) {
        switch (kind) {
            case FileKind::image: return countIf(options_.includeImages, result_.breakdown.images);
            case FileKind::video: return countIf(options_.includeVideos, result_.breakdown.videos);
            case FileKind::other: break;
        }
        return countIf(options_.includeOther, result_.breakdown.other);
    }

    static bool countIf(bool isIncluded, int& count) {
        if (isIncluded) ++count;
        return isIncluded;
    }

    const Options& options_;
    const std::unordered_set<std::string>& skipPaths_;
    const ScanReports& reports_;
    std::shared_ptr<const std::string> sourceRoot_;
    ScanResult result_;
};

}  // namespace

ScanResult scanSources(FileSystem& fileSystem, const std::vector<std::string>& sources, const Options& options,
                       const std::unordered_set<std::string>& skipPaths, const ScanReports& reports) {
    Scan scan(sources, options, skipPaths, reports);
    for (const auto& source : sources)
        scan.walk(fileSystem, source);
    return std::move(scan).result();
}

}  // namespace vellomar

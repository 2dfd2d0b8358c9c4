#include "engine/MetadataStage.h"

#include <algorithm>
#include <chrono>
#include <mutex>
#include <span>
#include <thread>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "dates/ExifBatch.h"
#include "engine/model/FileKind.h"
#include "platform/ThreadPriority.h"

namespace vellomar {
namespace {

using ExifUtils::BatchExifResult;
using ExifUtils::BatchKind;
using namespace std::chrono_literals;

constexpr double kShareOfProgress = 0.15;

// How much one start of ExifTool is given to do.
struct BatchLimits {
    std::size_t files = 200;
    std::chrono::milliseconds time = 30s;
};

constexpr BatchLimits kLocalLimits{};
constexpr BatchLimits kNetworkLimits{.files = 100, .time = 120s};

// The files that each of the two readers has behind it. Their sum is told to the main actor.
class SharedProgress {
public:
    SharedProgress(EnginePort& port, std::size_t total) : port_(port), total_(total) {}

    void imagesDone(std::size_t count) { publish(store(images_, count)); }
    void videosDone(std::size_t count) { publish(store(videos_, count)); }

private:
    // The new sum.
    std::size_t store(std::size_t& own, std::size_t count) {
        const std::lock_guard guard(lock_);
        own = count;
        return images_ + videos_;
    }

    void publish(std::size_t done) {
        port_.post([done, total = total_](MainActorState& main) {
            if (total == 0) return;
            main.published.setStatus(fmt::format("Reading EXIF metadata… {}/{}", done, total));
            main.published.setProgress(static_cast<double>(done) / static_cast<double>(total) * kShareOfProgress);
        });
    }

    EnginePort& port_;
    const std::size_t total_;
    std::mutex lock_;
    std::size_t images_ = 0;  // both under lock_
    std::size_t videos_ = 0;
};

std::vector<const TaggedFile*> filesOfKind(const std::vector<TaggedFile>& files, FileKind kind, bool isWanted) {
    std::vector<const TaggedFile*> found;
    if (!isWanted) return found;
    for (const auto& file : files)
        if (fileKindOf(file.path) == kind) found.push_back(&file);
    return found;
}

// Those whose volume is looked at; copies of all would be many.
std::vector<std::string> firstPaths(const std::vector<TaggedFile>& files) {
    std::vector<std::string> paths;
    for (const auto& file : std::span(files).first(std::min(files.size(), ExifUtils::kVolumesLookedAt)))
        paths.push_back(file.path);
    return paths;
}

BatchLimits limitsFor(const RunContext& context, const RunState& state) {
    const bool isFarAway = context.options().storageIsNetwork ||
                           ExifUtils::anyVolumeNotLocal(context.services.fileSystem, firstPaths(state.files));
    return isFarAway ? kNetworkLimits : kLocalLimits;
}

void merge(RunState& state, BatchExifResult result) {
    state.exifDates.merge(result.dates);
    state.exifCameras.merge(result.cameras);
}

// Reads both lists at once; returns when both are done.
void readBoth(const RunContext& context, RunState& state, const std::vector<const TaggedFile*>& images,
              const std::vector<const TaggedFile*>& videos) {
    const auto limits = limitsFor(context, state);
    SharedProgress progress(context.port, images.size() + videos.size());
    BatchExifResult imageResult;
    BatchExifResult videoResult;
    const auto read = [&](const auto& files, BatchKind kind, const auto& onProgress) {
        lowerPriorityOfThisThread();
        return batchReadExif(context.services.exifTool, {.files = files,
                                                         .kind = kind,
                                                         .chunkSize = limits.files,
                                                         .timeout = limits.time,
                                                         .isCancelled = [&] { return context.port.isClosed(); },
                                                         .onProgress = onProgress});
    };
    std::jthread imageTask([&] {
        imageResult = read(images, BatchKind::image, [&](std::size_t done, std::size_t) { progress.imagesDone(done); });
    });
    std::jthread videoTask([&] {
        videoResult = read(videos, BatchKind::video, [&](std::size_t done, std::size_t) { progress.videosDone(done); });
    });
    imageTask.join();
    videoTask.join();
    merge(state, std::move(imageResult));
    merge(state, std::move(videoResult));
}

}  // namespace

void readMetadataInBatches(const RunContext& context, RunState& state) {
    context.publishStatus("Reading EXIF metadata…");
    const auto& options = context.options();
    const auto images = filesOfKind(state.files, FileKind::image, options.useExifToolForImages);
    const auto videos = filesOfKind(state.files, FileKind::video, options.useExifToolForVideo);
    readBoth(context, state, images, videos);
    context.appendLog(fmt::format("ExifTool batch: {} dates, {} cameras from {} files", state.exifDates.size(),
                                  state.exifCameras.size(), images.size() + videos.size()));
    context.port.hop([](MainActorState& main) {
        main.published.setStatus("EXIF complete. Processing files…");
        main.published.setProgress(kShareOfProgress);
    });
}

}  // namespace vellomar

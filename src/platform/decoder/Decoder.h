#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "platform/ChildProcess.h"
#include "platform/FileDescriptor.h"
#include "platform/FileSystem.h"
#include "platform/decoder/MediaMetadata.h"

namespace vellomar {

// Reads what is inside of media files, in a process of its own: the content of a file is never parsed in this one. The
// libraries that know the formats crash, hang or eat memory over broken and hostile files; each time that costs the one
// file its value and nothing else. The decoder's process may open nothing, reach no network and start no program: it
// gets each file as an open descriptor.
//
// The process is started by the first request, started anew after it died or was ended, and gone when this object is.
// One thread at a time; nothing throws.
class Decoder {
public:
    // `program` is the path of the decoder's executable.
    explicit Decoder(std::string program) : program_(std::move(program)) {}
    ~Decoder();
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    // The metadata of an open file, wherever it has been read to. Nothing if the decoder could not tell: it died over
    // the file, or it needed more time. That is 0.7 seconds of computing; and 0.8 seconds in all, unless it waits for
    // a disk that is slow to answer, where it gets up to 30 seconds. Blocks for as long. A file without metadata has
    // empty ones.
    [[nodiscard]] std::optional<MediaMetadata> readMetadata(InputFile& file, MediaKind kind);

private:
    struct Worker {
        ChildProcess process;
        FileDescriptor socket;
    };

    [[nodiscard]] bool ensureStarted();
    [[nodiscard]] std::optional<Worker> startWorker() const;
    void dropWorker();

    std::string program_;
    std::optional<Worker> worker_;
    int failedStarts_ = 0;  // in a row
};

}  // namespace vellomar

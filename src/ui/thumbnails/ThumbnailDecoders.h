#pragma once

#include <QImage>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/decoder/PixelDecoder.h"

namespace vellomar {

// Makes small pictures of files by as many decoder processes as it is asked for at a time, each of which is kept for
// the next. Any thread, several at once.
class ThumbnailDecoders {
public:
    // `fileSystem` must outlive this; `program` is the path of "vellomar-pixel-decoder".
    ThumbnailDecoders(FileSystem& fileSystem, std::string program);

    // The middle of the picture, upright, cut to a square of at most `size` pixels a side; a null image for a file that
    // is none or cannot be read.
    [[nodiscard]] QImage decode(const std::string& path, int size);

private:
    [[nodiscard]] std::unique_ptr<PixelDecoder> takeIdle();
    void putBack(std::unique_ptr<PixelDecoder> decoder);

    FileSystem& fileSystem_;
    const std::string program_;
    std::mutex lock_;
    std::vector<std::unique_ptr<PixelDecoder>> idle_;  // under `lock_`
};

}  // namespace vellomar

#include "engine/BufferedCopy.h"

#include "platform/FileCopy.h"

namespace vellomar {
namespace {

constexpr std::size_t kBufferSize = 4 * 1024 * 1024;
constexpr const char* kDomain = "Vellomar";

enum ErrorCode { cannotOpenSource = 1, cannotOpenDestination = 2 };

tl::unexpected<Error> failure(ErrorCode code, const std::string& description) {
    return tl::unexpected(Error{kDomain, code, description});
}

// A stale partial file is in the way of a new one and is of no use to anybody.
Expected<std::unique_ptr<OutputFile>> createAnew(FileSystem& fileSystem, const std::string& source,
                                                 const std::string& partial) {
    auto created = fileSystem.createFile(partial, NewFileAccess::usual);
    if (created || isSameFile(fileSystem, source, partial) || !fileSystem.removeFile(partial)) return created;
    return fileSystem.createFile(partial, NewFileAccess::usual);
}

}  // namespace

Expected<void> bufferedCopy(FileSystem& fileSystem, const std::string& source, const std::string& partial) {
    const auto input = fileSystem.openForReading(source, true);
    if (!input) return failure(cannotOpenSource, "Cannot open source: " + source);
    const auto output = createAnew(fileSystem, source, partial);
    if (!output) return failure(cannotOpenDestination, "Cannot open destination: " + partial);
    if (auto copied = copyThroughMemory(**input, **output, kBufferSize); !copied) return copied;
    return settle(**output);
}

}  // namespace vellomar

#include <algorithm>

#include "fuzz/Require.h"
#include "fuzz/Targets.h"
#include "platform/decoder/MetadataMessages.h"
#include "platform/decoder/worker/metadata/VideoMetadataReader.h"

namespace vellomar::fuzz {
namespace {

void requireFormat(const VideoMetadata& metadata) {
    require(metadata.formats.size() == 1, "all texts stand in one format");
    require(!metadata.formats[0].identifier.empty(), "a format has a name");
}

// The creation date is one of the container's texts.
void requireCreationDate(const VideoMetadata& metadata) {
    require(!metadata.formats.empty() && std::ranges::count(metadata.formats[0].texts, *metadata.creationDate) > 0,
            "the creation date is one of the texts");
}

void run(Input input) {
    const auto metadata = readVideoMetadata(std::as_bytes(input));
    if (metadata != VideoMetadata{}) requireFormat(metadata);
    if (metadata.creationDate) requireCreationDate(metadata);
    const auto answer = metadataAnswer({{}, metadata});
    require(answer.size() <= kMostBytesOfMessage, "what a video tells has room in an answer");
    require(metadataFromAnswer(answer).has_value(), "what a video tells can be sent");
}

}  // namespace

const Target kVideoMetadata = {"VideoMetadataFuzz", InputKind::media, prepareVideoLibrary, run};

}  // namespace vellomar::fuzz

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "fuzz/Require.h"
#include "fuzz/Targets.h"
#include "platform/decoder/DecoderRequest.h"
#include "platform/decoder/MetadataMessages.h"

namespace vellomar::fuzz {
namespace {

constexpr std::size_t kLongestText = 1024;

// So much of a video's texts has room for sure, with what stands around each.
constexpr std::size_t kRoomForTexts = 40 * kLongestText;
constexpr std::size_t kMostAroundText = 16;

std::vector<std::string> fixedTextsOf(const MediaMetadata& metadata) {
    std::vector<std::string> texts;
    for (const auto& text : {metadata.image.dateTimeOriginal, metadata.image.dateTimeDigitized, metadata.image.dateTime,
                             metadata.image.make, metadata.image.model, metadata.video.creationDate})
        if (text) texts.push_back(*text);
    return texts;
}

std::vector<std::string> listedTextsOf(const VideoMetadata& video) {
    std::vector<std::string> texts;
    for (const auto& format : video.formats) {
        texts.push_back(format.identifier);
        texts.insert(texts.end(), format.texts.begin(), format.texts.end());
    }
    return texts;
}

// Whether all of it has room in an answer.
bool fits(const MediaMetadata& metadata) {
    const auto isShort = [](const std::string& text) { return text.size() <= kLongestText; };
    const auto listed = listedTextsOf(metadata.video);
    std::size_t needed = 0;
    for (const auto& text : listed)
        needed += text.size() + kMostAroundText;
    return needed <= kRoomForTexts && std::ranges::all_of(listed, isShort) &&
           std::ranges::all_of(fixedTextsOf(metadata), isShort);
}

std::string cut(const std::string& text) {
    return text.substr(0, kLongestText);
}

// Texts are left out from the one on that has no room.
bool isFrontOf(const VideoMetadata& sent, const VideoMetadata& whole) {
    const auto some = listedTextsOf(sent);
    const auto all = listedTextsOf(whole);
    return some.size() <= all.size() && std::ranges::equal(some, std::span(all).first(some.size()), {}, {}, cut);
}

void run(Input input) {
    const MessageBytes bytes(input.begin(), input.end());
    static_cast<void>(requestFromMessage(bytes));
    const auto metadata = metadataFromAnswer(bytes);
    if (!metadata) return;
    const auto answer = metadataAnswer(*metadata);
    require(answer.size() <= kMostBytesOfMessage, "an answer is short enough for a message");
    const auto received = metadataFromAnswer(answer);
    require(received.has_value(), "an answer is understood");
    require(!fits(*metadata) || *received == *metadata, "what has room arrives as it was");
    require(isFrontOf(received->video, metadata->video), "what has no room is left out at the end");
    require(metadataAnswer(*received) == answer, "what was sent once can be sent again");
}

}  // namespace

const Target kMetadataMessages = {"MetadataMessagesFuzz", InputKind::text, nullptr, run};

}  // namespace vellomar::fuzz

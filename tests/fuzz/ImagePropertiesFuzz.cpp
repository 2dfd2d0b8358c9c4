#include "fuzz/Require.h"
#include "fuzz/Targets.h"
#include "platform/decoder/MetadataMessages.h"
#include "platform/decoder/worker/OpenImage.h"
#include "platform/decoder/worker/metadata/ImagePropertiesReader.h"

namespace vellomar::fuzz {
namespace {

constexpr std::string_view kPadding(" \t\r\n\0", 5);

void requireUnpadded(const std::optional<std::string>& text) {
    if (!text) return;
    require(text->find('\0') == std::string::npos, "a text ends at its first NUL");
    require(text->empty() || kPadding.find(text->back()) == std::string_view::npos, "a text has no padding");
}

void run(Input input) {
    const auto properties = readImageProperties(std::as_bytes(input));
    for (const auto* text : {&properties.dateTimeOriginal, &properties.dateTimeDigitized, &properties.dateTime,
                             &properties.make, &properties.model})
        requireUnpadded(*text);
    const auto answer = metadataAnswer({properties, {}});
    require(answer.size() <= kMostBytesOfMessage, "what an image tells has room in an answer");
    require(metadataFromAnswer(answer).has_value(), "what an image tells can be sent");
}

}  // namespace

const Target kImageProperties = {"ImagePropertiesFuzz", InputKind::media, prepareImageLibrary, run};

}  // namespace vellomar::fuzz

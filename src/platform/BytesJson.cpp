#include "platform/BytesJson.h"

#include <charconv>
#include <optional>

#include <fmt/format.h>

#include "platform/Text.h"

// The JSON library takes well-formed UTF-8 alone. A stray byte therefore passes it in disguise: behind the mark
// U+10FFFF, a noncharacter, as the character U+00NN. A real U+10FFFF in a text is disguised as well, as the mark
// followed by "M", so that the way back is unique.

namespace vellomar {
namespace {

constexpr std::string_view kMark = "\xF4\x8F\xBF\xBF";  // U+10FFFF
constexpr char kMarkItself = 'M';
constexpr std::size_t kEscapeLength = 6;  // of \u0000

// Far more levels than any text of ours has, and far fewer than the stack has room for.
constexpr int kMostLevels = 512;

std::string characterForByte(unsigned char byte) {
    // U+0080 to U+00FF in UTF-8.
    return {static_cast<char>(0xC0U | (byte >> 6U)), static_cast<char>(0x80U | (byte & 0x3FU))};
}

std::string disguised(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto length = utf8CharacterLength(bytes);
        if (length == 0) {
            text += kMark;
            text += characterForByte(static_cast<unsigned char>(bytes.front()));
        } else {
            text += bytes.substr(0, length);
            if (bytes.starts_with(kMark)) text += kMarkItself;
        }
        bytes.remove_prefix(length == 0 ? 1 : length);
    }
    return text;
}

std::string undisguised(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const auto mark = text.find(kMark);
        bytes += text.substr(0, mark);
        if (mark == std::string_view::npos) break;
        text.remove_prefix(mark + kMark.size());
        if (text.starts_with(kMarkItself)) {
            bytes += kMark;
            text.remove_prefix(1);
        } else {
            const auto high = static_cast<unsigned char>(text[0]);
            const auto low = static_cast<unsigned char>(text[1]);
            bytes += static_cast<char>((high & 0x03U) << 6U | (low & 0x3FU));
            text.remove_prefix(2);
        }
    }
    return bytes;
}

// `value` with every text and key changed by `change`.
template <typename Change>
Json withTexts(const Json& value, const Change& change) {
    if (value.is_string()) return change(value.get_ref<const std::string&>());
    if (value.is_array()) {
        Json array = Json::array();
        for (const auto& element : value)
            array.push_back(withTexts(element, change));
        return array;
    }
    if (value.is_object()) {
        Json object = Json::object();
        for (const auto& [key, element] : value.items())
            object[change(key)] = withTexts(element, change);
        return object;
    }
    return value;
}

// The code unit of a \u0000 escape at the front of `text`.
std::optional<unsigned> escapedUnit(std::string_view text) {
    if (text.size() < kEscapeLength || !text.starts_with("\\u")) return std::nullopt;
    unsigned unit = 0;
    const char* end = text.data() + kEscapeLength;
    const auto [stop, error] = std::from_chars(text.data() + 2, end, unit, 16);
    if (error != std::errc() || stop != end) return std::nullopt;
    return unit;
}

bool isHighSurrogate(unsigned unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(unsigned unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

// Moves one escape, or a pair of them, from `text` to `result`, disguising what the JSON library would not take.
void moveEscape(std::string_view& text, std::string& result) {
    const auto unit = escapedUnit(text);
    std::size_t length = unit ? kEscapeLength : std::min<std::size_t>(2, text.size());
    if (unit && *unit >= 0xDC80 && *unit <= 0xDCFF) {
        result += kMark;
        result += characterForByte(static_cast<unsigned char>(*unit & 0xFFU));
        text.remove_prefix(length);
        return;
    }
    bool isMark = false;
    if (unit && isHighSurrogate(*unit)) {
        const auto low = escapedUnit(text.substr(length));
        if (low && isLowSurrogate(*low)) length += kEscapeLength;
        isMark = *unit == 0xDBFF && low == 0xDFFFU;
    }
    if (isMark)
        result.append(kMark) += kMarkItself;
    else
        result += text.substr(0, length);
    text.remove_prefix(length);
}

std::string withEscapesDisguised(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        if (text.front() == '\\') {
            moveEscape(text, result);
        } else if (text.starts_with(kMark)) {
            result += kMark;
            result += kMarkItself;
            text.remove_prefix(kMark.size());
        } else {
            result += text.front();
            text.remove_prefix(1);
        }
    }
    return result;
}

bool isNestedTooDeep(std::string_view json) {
    int level = 0;
    bool isInText = false;
    for (std::size_t i = 0; i < json.size(); ++i) {
        const char c = json[i];
        if (isInText && c == '\\')
            ++i;
        else if (c == '"')
            isInText = !isInText;
        else if (!isInText && (c == '[' || c == '{'))
            ++level;
        else if (!isInText && (c == ']' || c == '}'))
            --level;
        if (level > kMostLevels) return true;
    }
    return false;
}

// What the JSON library wrote, with the disguises replaced by escapes. The mark occurs nowhere but in texts.
std::string withDisguisesEscaped(std::string_view json) {
    std::string result;
    result.reserve(json.size());
    while (!json.empty()) {
        const auto mark = json.find(kMark);
        result += json.substr(0, mark);
        if (mark == std::string_view::npos) break;
        const bool isMarkItself = json.substr(mark + kMark.size()).starts_with(kMarkItself);
        const std::size_t length = kMark.size() + (isMarkItself ? 1 : 2);
        const auto bytes = undisguised(json.substr(mark, length));
        if (isMarkItself)
            result += bytes;
        else
            result += fmt::format("\\udc{:02x}", static_cast<unsigned char>(bytes.front()));
        json.remove_prefix(mark + length);
    }
    return result;
}

}  // namespace

std::string jsonText(const Json& value, int indent) {
    return withDisguisesEscaped(withTexts(value, disguised).dump(indent));
}

Expected<Json> parseJson(std::string_view text, const JsonObjectFilter& keepObject) {
    if (isNestedTooDeep(text)) return tl::unexpected(Error{"JSON", 2, "Nested too deep"});
    const auto plain = withEscapesDisguised(text);
    // Nearly all texts are free of disguises, and need no second copy of what was read.
    const bool hasDisguises = plain.find(kMark) != std::string::npos;
    JsonPlace place;
    bool isRootKept = true;
    const auto filter = [&](int depth, Json::parse_event_t event, Json& value) {
        if (event == Json::parse_event_t::key && depth == 1) place.topLevelKey = value.get_ref<const std::string&>();
        if (event != Json::parse_event_t::object_end) return true;
        place.depth = depth;
        const bool isKept = keepObject(place, hasDisguises ? withTexts(value, undisguised) : value);
        if (depth == 0) isRootKept = isKept;
        return isKept;
    };
    auto value = keepObject ? Json::parse(plain, filter, false) : Json::parse(plain, nullptr, false);
    if (value.is_discarded() && isRootKept) return tl::unexpected(Error{"JSON", 1, "Not a JSON text"});
    return hasDisguises ? withTexts(value, undisguised) : std::move(value);
}

}  // namespace vellomar

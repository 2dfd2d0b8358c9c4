#include "platform/Text.h"

#include <algorithm>
#include <cstdint>
#include <functional>

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uloc.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

namespace vellomar {
namespace {

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char asciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string asciiLowered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), asciiLower);
    return result;
}

// The longest well-formed beginning of `text`.
std::string_view wellFormedPrefix(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size()) {
        const auto character = utf8CharacterLength(text.substr(length));
        if (character == 0) break;
        length += character;
    }
    return text.substr(0, length);
}

// Changes every well-formed stretch of `text` by `change`, and copies the bytes between.
std::string transformed(std::string_view text, const std::function<void(icu::UnicodeString&)>& change) {
    std::string result;
    while (!text.empty()) {
        const auto prefix = wellFormedPrefix(text);
        if (prefix.empty()) {
            result += text.front();
            text.remove_prefix(1);
            continue;
        }
        auto stretch = icu::UnicodeString::fromUTF8(icu::StringPiece(prefix.data(), static_cast<int>(prefix.size())));
        change(stretch);
        stretch.toUTF8String(result);
        text.remove_prefix(prefix.size());
    }
    return result;
}

// A stray byte is none.
bool beginsWithWhiteSpace(std::string_view text) {
    UChar32 character = 0;
    std::size_t size = 0;
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    U8_NEXT(bytes, size, text.size(), character);
    return character >= 0 && u_isUWhiteSpace(character) != 0;
}

bool localeHasDotlessI() {
    const std::string_view locale = uloc_getDefault();
    return locale.starts_with("tr") || locale.starts_with("az");
}

void normalize(const icu::Normalizer2& form, icu::UnicodeString& text) {
    UErrorCode status = U_ZERO_ERROR;
    auto normalized = form.normalize(text, status);
    if (U_SUCCESS(status)) text = std::move(normalized);
}

// Case folded and composed. Composing keeps an accented letter one letter, so that "cafe" is not found in "café". It
// comes before the folding as well: the Turkish dotted I is a letter of its own only in one piece.
std::string folded(std::string_view text) {
    if (isAscii(text) && !localeHasDotlessI()) return asciiLowered(text);
    UErrorCode status = U_ZERO_ERROR;
    const auto* compose = icu::Normalizer2::getNFCInstance(status);
    const std::uint32_t options = localeHasDotlessI() ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT;
    return transformed(text, [&](icu::UnicodeString& stretch) {
        if (compose != nullptr) normalize(*compose, stretch);
        stretch.foldCase(options);
        if (compose != nullptr) normalize(*compose, stretch);
    });
}

}  // namespace

std::size_t utf8CharacterLength(std::string_view text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto size = static_cast<std::int32_t>(std::min<std::size_t>(text.size(), 4));
    std::int32_t length = 0;
    UChar32 character = 0;
    U8_NEXT(bytes, length, size, character);
    return character < 0 ? 0 : static_cast<std::size_t>(length);
}

bool isUtf8(std::string_view text) {
    return wellFormedPrefix(text).size() == text.size();
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count)
        text.remove_prefix(std::max<std::size_t>(1, utf8CharacterLength(text)));
    return count;
}

std::string lowercased(std::string_view text) {
    if (isAscii(text)) return asciiLowered(text);
    return transformed(text, [](icu::UnicodeString& stretch) { stretch.toLower(icu::Locale::getRoot()); });
}

std::string_view trimmed(std::string_view text) {
    constexpr auto kNone = std::string_view::npos;
    std::size_t begin = kNone;
    std::size_t end = 0;
    for (std::size_t at = 0; at < text.size();) {
        const auto rest = text.substr(at);
        const auto next = at + std::max<std::size_t>(utf8CharacterLength(rest), 1);
        if (!beginsWithWhiteSpace(rest)) {
            begin = std::min(begin, at);
            end = next;
        }
        at = next;
    }
    return begin == kNone ? std::string_view() : text.substr(begin, end - begin);
}

bool containsIgnoringCase(std::string_view text, std::string_view needle) {
    if (needle.empty()) return false;
    return folded(text).find(folded(needle)) != std::string::npos;
}

}  // namespace vellomar

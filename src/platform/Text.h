// Text as users see it: letters of every script, but over bytes that need not be UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vellomar {

// Length in bytes of the well-formed UTF-8 character that `text` begins with; 0 when it begins with none. Surrogates
// and overlong forms are not well formed. `text` must not be empty.
[[nodiscard]] std::size_t utf8CharacterLength(std::string_view text);

// Whether the whole of `text` is well-formed UTF-8; an empty one is.
[[nodiscard]] bool isUtf8(std::string_view text);

// How many characters `text` has; a byte that is not UTF-8 counts as one.
[[nodiscard]] std::size_t characterCount(std::string_view text);

// `text` in lower case, by Unicode's rules and no particular language's. Bytes that are not UTF-8 stay as they are.
[[nodiscard]] std::string lowercased(std::string_view text);

// `text` without the white space and line ends, of whatever script, at its beginning and end.
[[nodiscard]] std::string_view trimmed(std::string_view text);

// Whether `needle` occurs in `text`, ignoring case by Unicode's rules and those of the current locale (the Turkish
// dotless i). A composed and a decomposed accent are the same letter, so that names from any system compare. An empty
// `needle` occurs in nothing: a half-typed rule must not rename every folder. Bytes that are not UTF-8 compare as they
// are.
[[nodiscard]] bool containsIgnoringCase(std::string_view text, std::string_view needle);

}  // namespace vellomar

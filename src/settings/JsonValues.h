// What single JSON values mean to the settings. None is ever read as a value of another type.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/BytesJson.h"
#include "platform/Uuid.h"

namespace vellomar {

[[nodiscard]] std::optional<bool> booleanFrom(const Json& value);

// A whole number that an int can hold, in whatever form (4, 4.0).
[[nodiscard]] std::optional<int> integerFrom(const Json& value);

[[nodiscard]] std::optional<std::string> textFrom(const Json& value);

// Bytes are an object with their base64 text, so that no reader takes them for text.
[[nodiscard]] std::optional<std::string> bytesFrom(const Json& value);
[[nodiscard]] Json jsonOfBytes(std::string_view bytes);

// RFC 4648 with padding; nothing for a text that is not exactly that.
[[nodiscard]] std::optional<std::string> bytesFromBase64(std::string_view text);
[[nodiscard]] std::string base64Of(std::string_view bytes);

// The member of an object; null if it has none of that name or is no object.
[[nodiscard]] const Json* memberOf(const Json& object, const char* name);

[[nodiscard]] std::optional<std::string> textMember(const Json& object, const char* name);
[[nodiscard]] std::optional<Uuid> uuidMember(const Json& object, const char* name);

// The list whose JSON text this is, if it is one and every element can be read by `elementFrom`.
template <typename Element>
[[nodiscard]] std::optional<std::vector<Element>> wholeListFrom(std::string_view text,
                                                                std::optional<Element> (*elementFrom)(const Json&)) {
    const auto list = parseJson(text);
    if (!list || !list->is_array()) return std::nullopt;
    std::vector<Element> elements;
    for (const auto& value : *list) {
        auto element = elementFrom(value);
        if (!element) return std::nullopt;
        elements.push_back(*std::move(element));
    }
    return elements;
}

}  // namespace vellomar

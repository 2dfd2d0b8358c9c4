// JSON whose texts may hold any bytes.
//
// JSON is UTF-8, file names are not always. A byte 0xNN that is not part of well-formed UTF-8 is written as the lone
// low surrogate \udcNN, which no valid text contains, and read back to the same byte.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

#include "platform/Error.h"

namespace vellomar {

// A value whose strings are raw bytes. Object keys are kept in sorted order.
using Json = nlohmann::json;

// `value` as JSON text. `indent` blanks a level with each member on a line of its own, or all on one line when
// negative. Any thread.
[[nodiscard]] std::string jsonText(const Json& value, int indent = -1);

// Where in a text an object stands.
struct JsonPlace {
    int depth = 0;            // levels below the top: 2 for the elements of a list that the top object holds
    std::string topLevelKey;  // the member of the top object in which it stands
};

// Looks at each object as soon as it is read, and tells whether to keep it.
using JsonObjectFilter = std::function<bool(const JsonPlace& place, const Json& object)>;

// Reads a JSON text. Fails (domain "JSON") on anything that is not JSON, and on a text of more than 512 levels, which
// none of ours is and which could exhaust the stack. A slash may be escaped. A `keepObject` that takes what it needs
// and says no lets a long list pass through in little memory. Any thread.
[[nodiscard]] Expected<Json> parseJson(std::string_view text, const JsonObjectFilter& keepObject = {});

}  // namespace vellomar

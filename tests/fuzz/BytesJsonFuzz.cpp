#include "fuzz/Require.h"
#include "fuzz/Targets.h"
#include "platform/BytesJson.h"

namespace vellomar::fuzz {
namespace {

bool keepEverything(const JsonPlace& /*place*/, const Json& /*object*/) {
    return true;
}

void run(Input input) {
    const auto text = textOf(input);
    const auto value = parseJson(text);
    const auto watched = parseJson(text, keepEverything);
    require(value.has_value() == watched.has_value(), "looking on makes no text better or worse");
    if (!value) return;
    require(*value == *watched, "looking on changes no value");
    for (const int indent : {-1, 2}) {
        const auto again = parseJson(jsonText(*value, indent));
        require(again.has_value(), "what is written can be read");
        require(*again == *value, "what is written is read back as it was");
    }
}

}  // namespace

const Target kBytesJson = {"BytesJsonFuzz", InputKind::text, nullptr, run};

}  // namespace vellomar::fuzz

#include "engine/model/ConflictPolicy.h"

#include "engine/model/RawTexts.h"

namespace vellomar {
namespace {

constexpr RawTexts<ConflictPolicy, 3> kPolicyTexts = {{
    {ConflictPolicy::skip, "Skip"},
    {ConflictPolicy::rename, "Rename"},
    {ConflictPolicy::overwrite, "Overwrite"},
}};

}  // namespace

std::string_view rawText(ConflictPolicy policy) {
    return rawTextIn(kPolicyTexts, policy);
}

std::optional<ConflictPolicy> conflictPolicyFrom(std::string_view rawText) {
    return valueIn(kPolicyTexts, rawText);
}

}  // namespace vellomar

#include "engine/model/DuplicateAction.h"

#include "engine/model/RawTexts.h"

namespace vellomar {
namespace {

constexpr RawTexts<DuplicateAction, 3> kActionTexts = {{
    {DuplicateAction::log, "Log Only"},
    {DuplicateAction::moveToBin, "Move to _Duplicates"},
    {DuplicateAction::skip, "Skip Duplicate"},
}};

}  // namespace

std::string_view rawText(DuplicateAction action) {
    return rawTextIn(kActionTexts, action);
}

std::optional<DuplicateAction> duplicateActionFrom(std::string_view rawText) {
    return valueIn(kActionTexts, rawText);
}

}  // namespace vellomar

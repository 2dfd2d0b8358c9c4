#include "engine/model/DuplicateAction.h"

#include "engine/model/RawTexts.h"

namespace vellomar {
namespace {

constexpr RawTexts<DuplicateAction, 3> kRawTexts = {{
    {DuplicateAction::log, "Log Only"},
    {DuplicateAction::moveToBin, "Move to _Duplicates"},
    {DuplicateAction::skip, "Skip Duplicate"},
}};

}  // namespace

std::string_view rawText(DuplicateAction action) {
    return rawTextIn(kRawTexts, action);
}

std::optional<DuplicateAction> duplicateActionFrom(std::string_view rawText) {
    return valueIn(kRawTexts, rawText);
}

}  // namespace vellomar

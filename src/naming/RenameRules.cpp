#include "naming/RenameRules.h"

#include <algorithm>

#include "platform/Text.h"

namespace vellomar {
namespace {

constexpr std::string_view kFloppy = "Floppy";

// "y dorno" is what the folders of that family are called; "dorno" alone covers it.
bool isOfFloppyFamily(std::string_view name) {
    const auto lower = lowercased(name);
    const auto holds = [&](std::string_view word) { return lower.find(word) != std::string::npos; };
    return holds("floppy") && (holds("dorno") || holds("y dorno"));
}

}  // namespace

std::string applyRenameRules(std::string_view name, const std::vector<FolderRenameRule>& rules, bool secretFloppyMode) {
    if (secretFloppyMode && isOfFloppyFamily(name)) name = kFloppy;
    const auto rule = std::ranges::find_if(rules, [&](const FolderRenameRule& candidate) {
        return candidate.isEnabled && containsIgnoringCase(name, candidate.matchText);
    });
    return rule == rules.end() ? std::string(name) : rule->replacement;
}

}  // namespace vellomar

#include "duplicates/DuplicateReport.h"

#include <string_view>

namespace vellomar {
namespace {

void appendQuoted(std::string& text, std::string_view field) {
    text += '"';
    for (const char c : field) {
        if (c == '"') text += '"';
        text += c;
    }
    text += '"';
}

}  // namespace

std::string duplicatesReportText(const std::vector<ExactDuplicates>& groups) {
    std::string text = "sha256,canonical,duplicate\n";
    for (const auto& group : groups) {
        for (const auto duplicate : group.duplicates()) {
            appendQuoted(text, group.sha256);
            text += ',';
            appendQuoted(text, group.canonical());
            text += ',';
            appendQuoted(text, duplicate);
            text += '\n';
        }
    }
    return text;
}

}  // namespace vellomar

#include "naming/NamingTemplate.h"

#include <algorithm>
#include <array>

#include "engine/model/Options.h"

namespace vellomar {
namespace {

struct Token {
    std::string_view text;
    std::string NamePieces::*piece;
};

// In the order of replacement.
constexpr std::array<Token, 10> kTokens = {{
    {"{YYYY}", &NamePieces::year},
    {"{MM}", &NamePieces::month},
    {"{DD}", &NamePieces::day},
    {"{Month}", &NamePieces::monthName},
    {"{HH}", &NamePieces::hour},
    {"{mm}", &NamePieces::minute},
    {"{ss}", &NamePieces::second},
    {"{original}", &NamePieces::original},
    {"{Event}", &NamePieces::event},
    {"{ext}", &NamePieces::extension},
}};

// The search goes on behind what was put in, so that a value may hold the token that it replaces.
void replaceEvery(std::string& text, std::string_view token, std::string_view value) {
    for (auto at = text.find(token); at != std::string::npos; at = text.find(token, at + value.size()))
        text.replace(at, token.size(), value);
}

std::string_view withoutOuterBlanks(std::string_view segment) {
    constexpr std::string_view kBlanks = " \t";
    const auto first = segment.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return segment.substr(first, segment.find_last_not_of(kBlanks) + 1 - first);
}

}  // namespace

std::string renderTemplate(std::string_view format, const NamePieces& pieces) {
    std::string text(format.empty() ? kDefaultCustomFormat : format);
    for (const auto& [token, piece] : kTokens)
        replaceEvery(text, token, pieces.*piece);
    return text;
}

std::string renderTemplatePreview(std::string_view format) {
    static const NamePieces kSample = {"2024", "06", "14", "June", "14", "30", "21", "IMG_4821", "Vacation", "jpg"};
    return renderTemplate(format, kSample);
}

std::string relativePathOfTemplate(std::string_view rendered) {
    std::string path;
    path.reserve(rendered.size());
    while (!rendered.empty()) {
        const auto end = std::min(rendered.find('/'), rendered.size());
        if (const auto segment = withoutOuterBlanks(rendered.substr(0, end)); !segment.empty()) {
            if (!path.empty()) path += '/';
            path += segment;
        }
        rendered.remove_prefix(std::min(end + 1, rendered.size()));
    }
    return path;
}

}  // namespace vellomar

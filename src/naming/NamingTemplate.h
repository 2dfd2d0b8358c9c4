// The user's own naming style: a text with tokens, from which a relative path is made.
#pragma once

#include <string>
#include <string_view>

namespace vellomar {

// What the tokens of a template stand for, for one file. All texts are raw bytes and used as they are.
struct NamePieces {
    std::string year;       // {YYYY}, four digits
    std::string month;      // {MM}, two digits
    std::string day;        // {DD}
    std::string monthName;  // {Month}, "January" to "December"
    std::string hour;       // {HH}, 00 to 23
    std::string minute;     // {mm}
    std::string second;     // {ss}
    std::string original;   // {original}, the source's name without its extension
    std::string event;      // {Event}, empty when there is none
    std::string extension;  // {ext}, in lower case and without a dot; empty when the source has none
};

// `format`, or the default template when `format` is empty, with every token replaced. Tokens are case-sensitive and
// are replaced one after the other in the order of NamePieces, everywhere they stand: an {Event} or {ext} that comes in
// with the original name is replaced too. Other text in braces stays. Pure; any thread.
[[nodiscard]] std::string renderTemplate(std::string_view format, const NamePieces& pieces);

// What the options panel shows beside the template field: `format` rendered for a made-up file, with nothing split,
// trimmed or dropped. Pure; any thread.
[[nodiscard]] std::string renderTemplatePreview(std::string_view format);

// The relative path that a rendered template means: its segments without blanks and tabs at their ends and without
// those that are empty then, joined by "/". An event that is absent thus leaves no empty folder behind. Empty when
// nothing is left. Pure; any thread.
[[nodiscard]] std::string relativePathOfTemplate(std::string_view rendered);

}  // namespace vellomar

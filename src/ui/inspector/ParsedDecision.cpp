#include "ui/inspector/ParsedDecision.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <functional>
#include <optional>

namespace vellomar {
namespace {

constexpr int kStrongScore = 60;
constexpr auto kNowhere = std::string_view::npos;

// What stands behind `marker`; nothing where it does not occur.
std::optional<std::string_view> behind(std::string_view text, std::string_view marker) {
    const auto place = text.find(marker);
    if (place == kNowhere) return std::nullopt;
    return text.substr(place + marker.size());
}

std::string_view upTo(std::string_view text, char end) {
    return text.substr(0, text.find(end));
}

std::optional<int> scoreIn(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    int score = 0;
    const auto* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, score);
    if (error != std::errc() || stop != end) return std::nullopt;
    return score;
}

struct Scored {
    std::string_view source;
    std::string_view score;
};

// "SOURCE(SCORE)", where the source may have parentheses of its own.
std::optional<Scored> scored(std::string_view text) {
    const auto open = text.rfind('(');
    const auto close = text.rfind(')');
    if (open == kNowhere || close == kNowhere || close < open) return std::nullopt;
    return Scored{text.substr(0, open), text.substr(open + 1, close - open - 1)};
}

void readChosen(std::string_view text, ParsedDecision& decision) {
    const auto rest = behind(text, "chosen=");
    if (!rest) return;
    const auto end = rest->find("; candidates=");
    if (end == kNowhere) return;
    const auto chosen = scored(rest->substr(0, end));
    if (!chosen) return;
    decision.chosenSource = chosen->source;
    decision.isStrong = scoreIn(chosen->score).value_or(0) >= kStrongScore;
}

std::optional<ParsedCandidate> candidateIn(std::string_view text) {
    const auto equals = text.rfind('=');
    const auto parts = scored(text);
    if (equals == kNowhere || !parts) return std::nullopt;
    return ParsedCandidate{std::string(parts->source), std::string(text.substr(equals + 1)),
                           scoreIn(parts->score).value_or(0)};
}

void readCandidates(std::string_view text, ParsedDecision& decision) {
    constexpr std::string_view kSeparator = "; ";
    auto rest = behind(text, "candidates=[");
    if (!rest) return;
    auto list = upTo(*rest, ']');
    while (!list.empty()) {
        const auto end = list.find(kSeparator);
        if (auto candidate = candidateIn(list.substr(0, end))) decision.candidates.push_back(*std::move(candidate));
        list.remove_prefix(end == kNowhere ? list.size() : end + kSeparator.size());
    }
    std::ranges::stable_sort(decision.candidates, std::greater(), &ParsedCandidate::score);
}

}  // namespace

ParsedDecision parsedDecision(std::string_view text) {
    ParsedDecision decision;
    readChosen(text, decision);
    if (const auto date = behind(text, "date=")) decision.chosenDate = upTo(*date, ';');
    if (const auto dest = behind(text, "dest='")) decision.dest = upTo(*dest, '\'');
    readCandidates(text, decision);
    return decision;
}

}  // namespace vellomar

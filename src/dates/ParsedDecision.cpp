#include "dates/ParsedDecision.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <optional>

#include "dates/DateCandidate.h"

namespace vellomar {
namespace {

// What stands behind the first `marker`; nothing when there is none.
std::optional<std::string_view> behind(std::string_view marker, std::string_view text) {
    const auto at = text.find(marker);
    if (at == std::string_view::npos) return std::nullopt;
    return text.substr(at + marker.size());
}

// What stands before the first `marker`; nothing when there is none.
std::optional<std::string_view> before(std::string_view marker, std::string_view text) {
    const auto at = text.find(marker);
    if (at == std::string_view::npos) return std::nullopt;
    return text.substr(0, at);
}

// As above, but all of `text` when there is none.
std::string_view upTo(std::string_view marker, std::string_view text) {
    return before(marker, text).value_or(text);
}

// A signed decimal number that is all of `text`.
std::optional<int> numberIn(std::string_view text) {
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    int value = 0;
    const auto* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end) return std::nullopt;
    return value;
}

struct ScoredSource {
    std::string_view source;
    std::optional<int> score;  // none for what is no number
};

// Of "SOURCE(SCORE)", with anything behind it. The last brackets count, as a source may have some of its own.
std::optional<ScoredSource> scoredSource(std::string_view text) {
    const auto open = text.rfind('(');
    const auto close = text.rfind(')');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open) return std::nullopt;
    return ScoredSource{text.substr(0, open), numberIn(text.substr(open + 1, close - open - 1))};
}

void readChoice(std::string_view text, ParsedDecision& decision) {
    const auto rest = behind("chosen=", text);
    const auto choice = rest ? before("; candidates=", *rest) : std::nullopt;
    const auto chosen = choice ? scoredSource(*choice) : std::nullopt;
    if (!chosen) return;
    decision.chosenSource = chosen->source;
    decision.isStrong = chosen->score && *chosen->score >= kStrongScore;
}

std::optional<ParsedDecision::Candidate> candidateOf(std::string_view entry) {
    const auto equals = entry.rfind('=');
    const auto scored = scoredSource(entry);
    if (equals == std::string_view::npos || !scored) return std::nullopt;
    return ParsedDecision::Candidate{std::string(scored->source), std::string(entry.substr(equals + 1)),
                                     scored->score.value_or(0)};
}

std::vector<ParsedDecision::Candidate> candidatesIn(std::string_view entries) {
    std::vector<ParsedDecision::Candidate> candidates;
    std::optional<std::string_view> rest = entries;
    while (rest) {
        if (auto candidate = candidateOf(upTo("; ", *rest))) candidates.push_back(*std::move(candidate));
        rest = behind("; ", *rest);
    }
    return candidates;
}

void readCandidates(std::string_view text, ParsedDecision& decision) {
    const auto rest = behind("candidates=[", text);
    const auto entries = rest ? before("]", *rest) : std::nullopt;
    if (!entries) return;
    decision.candidates = candidatesIn(*entries);
    std::ranges::stable_sort(decision.candidates, std::ranges::greater(), &ParsedDecision::Candidate::score);
}

}  // namespace

ParsedDecision parseDecision(std::string_view text) {
    ParsedDecision decision;
    readChoice(text, decision);
    if (const auto date = behind("date=", text)) decision.chosenDate = upTo(";", *date);
    if (const auto dest = behind("dest='", text)) decision.dest = upTo("'", *dest);
    readCandidates(text, decision);
    return decision;
}

}  // namespace vellomar

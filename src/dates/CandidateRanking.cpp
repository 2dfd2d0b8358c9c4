#include "dates/CandidateRanking.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <string_view>

#include <fmt/format.h>

#include "engine/model/DateString.h"
#include "platform/LocalTime.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;

constexpr auto kDay = 24h;
constexpr int kConfirmableScore = 90;
constexpr int kConfirmationGain = 8;
constexpr int kHighestScore = 100;
constexpr int kSuspectScore = 10;
constexpr int kFallbackScore = 10;

int yearOf(const DateCandidate& candidate) {
    return localCivilTime(candidate.date).year;
}

auto firstLabelled(std::vector<DateCandidate>& candidates, std::string_view prefix) {
    return std::ranges::find_if(candidates,
                                [&](const DateCandidate& candidate) { return candidate.source.starts_with(prefix); });
}

}  // namespace

void dropImpossibleDates(std::vector<DateCandidate>& candidates, Instant now) {
    std::erase_if(candidates, [&](const DateCandidate& candidate) {
        return candidate.date <= Instant() || candidate.date >= now + kDay;
    });
}

void confirmByFilename(std::vector<DateCandidate>& candidates) {
    const auto strong = std::ranges::find_if(
        candidates, [](const DateCandidate& candidate) { return candidate.score >= kConfirmableScore; });
    const auto named = firstLabelled(candidates, "Filename");
    if (strong == candidates.end() || named == candidates.end()) return;
    if (std::chrono::abs(strong->date - named->date) >= kDay) return;
    const auto confirmedSource = strong->source;
    for (auto& candidate : candidates) {
        if (candidate.source != confirmedSource) continue;
        candidate.source += "+confirmed";
        candidate.score = std::min(candidate.score + kConfirmationGain, kHighestScore);
    }
}

void suspectFileDates(std::vector<DateCandidate>& candidates) {
    const auto folder = firstLabelled(candidates, "Folder-derived");
    if (folder == candidates.end()) return;
    const int folderYear = yearOf(*folder);
    for (auto& candidate : candidates) {
        if (!candidate.source.starts_with("FS ") || std::abs(yearOf(candidate) - folderYear) < 2) continue;
        candidate.source += "+suspect";
        candidate.score = std::min(candidate.score, kSuspectScore);
    }
}

DateCandidate bestOf(const std::vector<DateCandidate>& candidates, Instant now) {
    const auto best = std::ranges::max_element(candidates, {}, &DateCandidate::score);
    if (best == candidates.end()) return {now, "Fallback Now", kFallbackScore};
    return *best;
}

std::string candidatesText(const DateCandidate& chosen, const std::vector<DateCandidate>& candidates) {
    std::vector<const DateCandidate*> byScore;
    byScore.reserve(candidates.size());
    for (const auto& candidate : candidates)
        byScore.push_back(&candidate);
    std::ranges::stable_sort(byScore, std::greater(), &DateCandidate::score);

    auto text = fmt::format("chosen={}({}); candidates=[", chosen.source, chosen.score);
    std::string_view separator;
    for (const auto* candidate : byScore) {
        fmt::format_to(std::back_inserter(text), "{}{}({})={}", separator, candidate->source, candidate->score,
                       dateTimeText(localCivilTime(candidate->date)));
        separator = "; ";
    }
    text += ']';
    return text;
}

}  // namespace vellomar

#include <algorithm>
#include <functional>
#include <string>

#include "dates/ParsedDecision.h"
#include "fuzz/Require.h"
#include "fuzz/Targets.h"

namespace vellomar::fuzz {
namespace {

bool isIn(std::string_view text, const std::string& part) {
    return text.find(part) != std::string_view::npos;
}

void requireCandidates(const ParsedDecision& decision, std::string_view text) {
    require(std::ranges::is_sorted(decision.candidates, std::ranges::greater(), &ParsedDecision::Candidate::score),
            "the highest score comes first");
    for (const auto& candidate : decision.candidates) {
        require(isIn(text, candidate.source + "("), "a source stands before a bracket");
        require(isIn(text, "=" + candidate.date), "a date stands behind an equals sign");
        require(!isIn(candidate.date, "=") && !isIn(candidate.date, "]"), "a date ends with its entry");
        require(!isIn(candidate.source, "; "), "a source lies within its entry");
    }
}

void run(Input input) {
    const auto text = textOf(input);
    const ParsedDecision nothing;
    const auto decision = parseDecision(text);
    require(decision.chosenDate == nothing.chosenDate || isIn(text, "date=" + decision.chosenDate),
            "the chosen date stands behind its name");
    require(!isIn(decision.chosenDate, ";"), "the chosen date ends at a semicolon");
    require(decision.chosenSource == nothing.chosenSource || isIn(text, "chosen=" + decision.chosenSource),
            "the chosen source stands behind its name");
    require(!decision.isStrong || isIn(text, "; candidates="), "a strong choice has candidates behind it");
    require(decision.dest.empty() || isIn(text, "dest='" + decision.dest), "the destination is part of the text");
    require(!isIn(decision.dest, "'"), "the destination ends at a quote");
    requireCandidates(decision, text);
}

}  // namespace

const Target kParsedDecision = {"ParsedDecisionFuzz", InputKind::text, nullptr, run};

}  // namespace vellomar::fuzz

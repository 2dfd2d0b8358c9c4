#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vellomar {

// What a decision's text or its log text tells, taken apart for display. A row's text has the date and the
// destination, a log text has the choice and the candidates; what a text does not have stays as it is here.
struct ParsedDecision {
    // A dated clue that the choice was made from.
    struct Candidate {
        std::string source;
        std::string date;  // as it stands in the text
        int score = 0;     // 0 also for one that is no number

        bool operator==(const Candidate&) const = default;
    };

    std::string chosenDate = "—";  // as it stands in the text
    std::string chosenSource = "—";
    bool isStrong = false;              // by the score of the choice, not by the letter that a row's text has
    std::string dest;                   // path; ends at its first single quote, since the text escapes none
    std::vector<Candidate> candidates;  // highest score first; equal scores in the order of the text

    bool operator==(const ParsedDecision&) const = default;
};

// Takes `text` apart:
//
//   chosen=SOURCE(SCORE); candidates=   source and strength of the choice
//   date=DATE;                          the chosen date, or up to the end
//   dest='PATH'                         the destination, or up to the end
//   candidates=[SOURCE(SCORE)=DATE; …]  the candidates; an entry that lacks a mark is left out
//
// Each is looked for on its own, at the first place where it begins, so a text of any bytes is a text with some of
// them or none. Pure; any thread.
[[nodiscard]] ParsedDecision parseDecision(std::string_view text);

}  // namespace vellomar

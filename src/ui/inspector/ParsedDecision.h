#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vellomar {

// One date that was considered for a file.
struct ParsedCandidate {
    std::string source;
    std::string date;
    int score = 0;
    bool operator==(const ParsedCandidate&) const = default;
};

// What the text of a decision tells. A row of the plan carries the date and the destination alone; where the date came
// from and what else was considered is in the log's text, which is read here all the same.
struct ParsedDecision {
    std::string chosenDate = "—";
    std::string chosenSource = "—";
    bool isStrong = false;
    std::string dest;
    std::vector<ParsedCandidate> candidates;  // best first; those of one score in the order of the text
    bool operator==(const ParsedDecision&) const = default;
};

// Reads the parts of "chosen=SOURCE(SCORE); candidates=[SOURCE(SCORE)=DATE; …]; date=DATE; dest='PATH'", each by itself
// and wherever it stands; a part that is not there, or not whole, is as it is at first. Any thread.
[[nodiscard]] ParsedDecision parsedDecision(std::string_view text);

}  // namespace vellomar

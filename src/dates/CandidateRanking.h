// How candidates check each other, and which one is believed. The steps are told apart so that each can be seen at
// work; a decision runs them in the order given here.
#pragma once

#include <string>
#include <vector>

#include "dates/DateCandidate.h"
#include "platform/Instant.h"

namespace vellomar {

// Drops what cannot be a shoot date: up to and including 1970-01-01T00:00:00Z, and from one day after `now` on. That
// day allows for zones and slow clocks. Keeps the order. Pure; any thread.
void dropImpossibleDates(std::vector<DateCandidate>& candidates, Instant now);

// If the first candidate of 90 or more and the first from the file's name lie less than a day apart, every candidate
// of the former's source gets "+confirmed" on its label and 8 more on its score, up to 100. Pure; any thread.
void confirmByFilename(std::vector<DateCandidate>& candidates);

// If the folders tell a year, file dates that are two years or more away from it get "+suspect" on their label and
// score 10 at most. Years are those of local time. Pure; any thread.
void suspectFileDates(std::vector<DateCandidate>& candidates);

// The one with the highest score, the first of equals; without any candidate `now` itself, as "Fallback Now" with score
// 10. Pure; any thread.
[[nodiscard]] DateCandidate bestOf(const std::vector<DateCandidate>& candidates, Instant now);

// For the log, in the form "chosen=Filename(70); candidates=[Filename(70)=2023-08-14 14:30:21; FS CreationDate(15)=…]":
// by score, equals in the order given. Pure; any thread.
[[nodiscard]] std::string candidatesText(const DateCandidate& chosen, const std::vector<DateCandidate>& candidates);

}  // namespace vellomar

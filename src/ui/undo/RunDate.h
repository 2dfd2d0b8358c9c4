#pragma once

#include <QLocale>
#include <QString>
#include <string>

namespace vellomar {

// When a run was, for reading: of "2024-06-14T11:40:58" the date in the language's medium form and the time in its
// short one, "Jun 14, 2024, 11:40 AM". What is no such time, to the letter, comes back as it stands. Any thread.
[[nodiscard]] QString runDateText(const std::string& runID, const QLocale& locale);

}  // namespace vellomar

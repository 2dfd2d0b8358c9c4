#include <QVariant>

#include <gtest/gtest.h>

#include "ui/QtPrinters.h"
#include "ui/components/StatusPillWords.h"

namespace vellomar {
namespace {

TEST(StatusPillWords, TellWhatIsGoingOn) {
    struct Case {
        bool isRunning;
        const char* statusText;
        const char* words;
    };
    constexpr Case kCases[] = {
        {false, "", "READY"},
        {false, "Done: 5 files", "DONE: 5 FILES"},
        {true, "", "RUNNING"},
        {true, "Copying 5 of 10", "RUNNING"},
    };
    for (const auto& [isRunning, statusText, words] : kCases) {
        StatusPillWords pill;
        pill.setProperty("isRunning", isRunning);
        pill.setProperty("statusText", QString(statusText));
        EXPECT_EQ(pill.text(), QString(words));
    }
}

}  // namespace
}  // namespace vellomar

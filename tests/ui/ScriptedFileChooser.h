#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ui/desktop/FileChooser.h"

namespace vellomar::testing {

// Answers at once with what the test says, and remembers what it was asked last.
class ScriptedFileChooser final : public FileChooser {
public:
    void choose(const FileQuestion& question, Done done) override {
        last_ = question;
        done(std::exchange(answer_, {}));
    }

    // The answer to the next question; without it the dialog is dismissed.
    void answerNext(std::vector<std::string> paths) { answer_ = std::move(paths); }

    [[nodiscard]] const std::optional<FileQuestion>& last() const { return last_; }

private:
    std::vector<std::string> answer_;
    std::optional<FileQuestion> last_;
};

}  // namespace vellomar::testing

#pragma once

#include <atomic>
#include <string>
#include <vector>

#include "ui/inspector/FileFacts.h"

namespace vellomar::testing {

// Answers what it was given, whatever the file.
class GivenFacts final : public FileFactsReader {
public:
    [[nodiscard]] FileFacts read(const std::string& /*path*/) override {
        ++reads;
        return facts;
    }

    FileFacts facts;
    std::atomic<int> reads = 0;
};

}  // namespace vellomar::testing

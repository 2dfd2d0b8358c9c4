#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "dates/MetadataReader.h"

namespace vellomar::testing {

// Answers from tables, and remembers what it was asked.
class FakeMetadataReader final : public MetadataReader {
public:
    std::map<std::string, DateCandidate> sidecars;
    std::map<std::string, ImageEXIFResult> images;
    std::map<std::string, DateCandidate> videos;
    std::map<std::string, std::string> cameras;
    std::vector<std::string> calls;  // operation, a blank, path

    std::optional<DateCandidate> sidecarCandidate(const std::string& path) override {
        return answer("sidecar", sidecars, path);
    }
    std::optional<ImageEXIFResult> readImageDate(const std::string& path) override {
        return answer("image", images, path);
    }
    std::optional<DateCandidate> readVideoDate(const std::string& path) override {
        return answer("video", videos, path);
    }
    std::optional<std::string> readImageCamera(const std::string& path) override {
        return answer("camera", cameras, path);
    }

private:
    template <typename Value>
    std::optional<Value> answer(const std::string& operation, const std::map<std::string, Value>& table,
                                const std::string& path) {
        calls.push_back(operation + " " + path);
        const auto found = table.find(path);
        if (found == table.end()) return std::nullopt;
        return found->second;
    }
};

}  // namespace vellomar::testing

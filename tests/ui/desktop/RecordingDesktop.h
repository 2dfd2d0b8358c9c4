#pragma once

#include <string>
#include <vector>

#include "ui/desktop/FileReveal.h"
#include "ui/desktop/LinkOpener.h"

namespace vellomar::testing {

// A desktop that shows nothing, and tells what it was asked to show.
class RecordingReveal final : public FileReveal {
public:
    void reveal(const std::string& path) override { paths.push_back(path); }

    std::vector<std::string> paths;
};

class RecordingLinks final : public LinkOpener {
public:
    void openFirst(const std::vector<std::string>& uris) override { asked.push_back(uris); }

    std::vector<std::vector<std::string>> asked;
};

}  // namespace vellomar::testing

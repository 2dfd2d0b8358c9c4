#pragma once

#include <string>
#include <string_view>

namespace vellomar::bench {

// A new folder where temporary files go, for a corpus and what is made of it. It goes, with all in it, at the end of
// the scope, unless it is to be kept.
class WorkFolder {
public:
    explicit WorkFolder(bool isKept);
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

    // The absolute path of `relative` below this folder.
    [[nodiscard]] std::string operator/(std::string_view relative) const;

    // An empty folder of this name; what stood there is removed.
    [[nodiscard]] std::string emptyFolder(std::string_view name) const;

private:
    std::string path_;
    bool isKept_;
};

}  // namespace vellomar::bench

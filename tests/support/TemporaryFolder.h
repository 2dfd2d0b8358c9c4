#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vellomar::testing {

// A new folder that goes, with all in it, at the end of the scope.
class TemporaryFolder {
public:
    enum class Where {
        usual,     // where temporary files go
        inMemory,  // where syncing costs nothing, if the machine has such a place
    };

    explicit TemporaryFolder(Where where = Where::usual);
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

    // The absolute path of `relative` below this folder.
    [[nodiscard]] std::string operator/(std::string_view relative) const;

    // Makes a file and the folders that lead to it; returns its absolute path.
    std::string write(std::string_view relative, std::string_view content = "content") const;

    // Makes a folder and those that lead to it; returns its absolute path.
    std::string makeFolder(std::string_view relative) const;

private:
    std::string path_;
};

// Whole content of a file; fails the test when it cannot be read.
[[nodiscard]] std::string contentOf(const std::string& path);

// Whether anything stands at `path`.
[[nodiscard]] bool exists(const std::string& path);

}  // namespace vellomar::testing

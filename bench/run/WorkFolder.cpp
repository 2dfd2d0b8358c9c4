#include "run/WorkFolder.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <fmt/format.h>

namespace vellomar::bench {
namespace fs = std::filesystem;

WorkFolder::WorkFolder(bool isKept) : isKept_(isKept) {
    std::string pattern = (fs::temp_directory_path() / ("vellomar-bench-" + std::string(6, 'X'))).string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::system_error(errno, std::generic_category(), pattern);
    path_ = pattern;
    if (isKept_) fmt::print(stderr, "  kept: {}\n", path_);
}

WorkFolder::~WorkFolder() {
    std::error_code ignored;
    if (!isKept_) fs::remove_all(path_, ignored);
}

std::string WorkFolder::operator/(std::string_view relative) const {
    return path_ + "/" + std::string(relative);
}

std::string WorkFolder::emptyFolder(std::string_view name) const {
    auto folder = *this / name;
    fs::remove_all(folder);
    fs::create_directory(folder);
    return folder;
}

}  // namespace vellomar::bench

#include "support/TemporaryFolder.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

#include <gtest/gtest.h>

namespace vellomar::testing {
namespace fs = std::filesystem;

namespace {

fs::path parentOf(TemporaryFolder::Where where) {
    fs::path inMemory = "/dev/shm";
    if (where == TemporaryFolder::Where::inMemory && fs::is_directory(inMemory)) return inMemory;
    return fs::temp_directory_path();
}

}  // namespace

TemporaryFolder::TemporaryFolder(Where where) {
    std::string pattern = (parentOf(where) / ("vellomar-test-" + std::string(6, 'X'))).string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::system_error(errno, std::generic_category(), pattern);
    path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string TemporaryFolder::operator/(std::string_view relative) const {
    return path_ + "/" + std::string(relative);
}

std::string TemporaryFolder::write(std::string_view relative, std::string_view content) const {
    std::string path = *this / relative;
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << content;
    file.close();
    if (!file) throw std::runtime_error("cannot write " + path);
    return path;
}

std::string TemporaryFolder::makeFolder(std::string_view relative) const {
    std::string path = *this / relative;
    fs::create_directories(path);
    return path;
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool exists(const std::string& path) {
    return fs::exists(fs::symlink_status(path));
}

}  // namespace vellomar::testing

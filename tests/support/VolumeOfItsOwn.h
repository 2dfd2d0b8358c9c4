#pragma once

#include <cerrno>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>

#include <gmock/gmock.h>

namespace vellomar::testing {

// A small empty volume in memory, mounted where nobody but its test sees it.
class VolumeOfItsOwn {
public:
    [[nodiscard]] const std::string& path() const { return path_; }

    // From here on nothing can be changed on it.
    void makeReadOnly() const;

    // Takes it away, with all that is on it, and puts an empty one at its place.
    void unmount() const;
    void mountAnew() const;

    // Shows `folder` at its place.
    void bind(const std::string& folder) const;

private:
    friend int withVolumeOfItsOwn(std::size_t size, const std::function<void(const VolumeOfItsOwn&)>& body);

    VolumeOfItsOwn(std::string path, std::size_t size) : path_(std::move(path)), size_(size) {}

    std::string path_;
    std::size_t size_;
};

// Runs `body` with a volume of `size` bytes, a multiple of a page, on a thread whose view of the disk is its own; so is
// that of the threads and programs that it starts. The volume goes with the last of them. Returns 0, or, with nothing
// run, why this user may mount nothing (EPERM, EACCES).
[[nodiscard]] int withVolumeOfItsOwn(std::size_t size, const std::function<void(const VolumeOfItsOwn&)>& body);

// Matches what it returns where a test of it could not fail unnoticed: it was done, or this machine lets this user
// mount nothing.
inline auto doneOrForbidden() {
    return ::testing::AnyOf(0, EPERM, EACCES);
}

}  // namespace vellomar::testing

#pragma once

#include <string>

namespace vellomar {

// Shows the user a file where it lies. Interface thread only.
class FileReveal {
public:
    virtual ~FileReveal() = default;

    // `path` is absolute, and may be a folder's. Returns at once; a failure is silent.
    virtual void reveal(const std::string& path) = 0;
};

}  // namespace vellomar

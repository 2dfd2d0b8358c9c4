#pragma once

#include <string>
#include <vector>

namespace vellomar {

// Opens addresses in whatever program the desktop has for them. Interface thread only.
class LinkOpener {
public:
    virtual ~LinkOpener() = default;

    // The first of these URIs for whose scheme there is a program; nothing happens where there is none. Returns at
    // once; a program that fails to start is silent.
    virtual void openFirst(const std::vector<std::string>& uris) = 0;
};

}  // namespace vellomar

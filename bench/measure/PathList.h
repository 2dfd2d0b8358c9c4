#pragma once

#include <fstream>
#include <string>
#include <vector>

namespace vellomar::bench {

// The lines of the file `list`: one path each.
inline std::vector<std::string> pathsIn(const std::string& list) {
    std::vector<std::string> paths;
    std::ifstream file(list);
    for (std::string path; std::getline(file, path);)
        paths.push_back(path);
    return paths;
}

}  // namespace vellomar::bench

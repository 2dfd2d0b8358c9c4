#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace vellomar {

// One file that the scan kept. A library has hundreds of thousands of these, so the source folder is shared.
struct TaggedFile {
    std::string path;                               // absolute
    std::shared_ptr<const std::string> sourceRoot;  // path of the source folder under which it was found
    std::optional<std::int64_t> size;               // bytes, as the scan read it; none where it could not be read
};

}  // namespace vellomar

#include "engine/model/IgnoreDirNames.h"

#include <algorithm>
#include <array>

namespace vellomar {
namespace {

using namespace std::string_view_literals;

// In byte order, to be searched by halves.
constexpr std::array ignoreDirNames = {
    ".git"sv,      ".svn"sv,       ".thumbnails"sv, ".thumbs"sv,  "100apple"sv, "100media"sv, "@eadir"sv,
    "android"sv,   "apple"sv,      "archive"sv,     "archives"sv, "backup"sv,   "backups"sv,  "camera"sv,
    "dcim"sv,      "edited"sv,     "edits"sv,       "export"sv,   "exports"sv,  "image"sv,    "images"sv,
    "img"sv,       "import"sv,     "imports"sv,     "media"sv,    "movie"sv,    "movies"sv,   "original"sv,
    "originals"sv, "photo"sv,      "photos"sv,      "pics"sv,     "pictures"sv, "raw"sv,      "raws"sv,
    "temp"sv,      "thumbnails"sv, "thumbs"sv,      "tmp"sv,      "video"sv,    "videos"sv};

static_assert(ignoreDirNames.size() == 41 && std::ranges::is_sorted(ignoreDirNames));

}  // namespace

bool isIgnoredDirName(std::string_view lowercasedName) {
    return std::ranges::binary_search(ignoreDirNames, lowercasedName);
}

}  // namespace vellomar

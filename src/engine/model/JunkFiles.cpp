#include "engine/model/JunkFiles.h"

#include <algorithm>
#include <array>

namespace vellomar {
namespace {

using namespace std::string_view_literals;

// Both in the order of the alphabet, to be searched by halves.
constexpr std::array kJunkFileNames = {".apdisk"sv,           ".bridgesort"sv,           ".ds_store"sv,
                                       "albumartsmall.jpg"sv, "desktop.ini"sv,           "ethumbs.db"sv,
                                       "folder.jpg"sv,        "mspaint.exe"sv,           "picasa.ini"sv,
                                       "thumbs.db"sv,         "thumbs.db:encryptable"sv, "zbthumbnail.info"sv};
constexpr std::array kJunkExtensions = {"db"sv, "ini"sv, "lnk"sv, "tmp"sv, "url"sv};

static_assert(kJunkFileNames.size() == 12 && std::ranges::is_sorted(kJunkFileNames));
static_assert(kJunkExtensions.size() == 5 && std::ranges::is_sorted(kJunkExtensions));

}  // namespace

bool isJunkFile(std::string_view lowercasedName, std::string_view lowercasedExtension) {
    return lowercasedName.starts_with('.') || std::ranges::binary_search(kJunkExtensions, lowercasedExtension) ||
           std::ranges::binary_search(kJunkFileNames, lowercasedName);
}

}  // namespace vellomar

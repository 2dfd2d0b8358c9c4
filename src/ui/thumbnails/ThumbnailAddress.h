#pragma once

#include <QString>
#include <QUrl>
#include <string>
#include <string_view>

namespace vellomar {

// Where the interface loads a small picture of a file from: an address of an image, made for the eye of no one. It
// carries the path byte for byte. Empty for a file that is never decoded, by its name's ending. Any thread.
[[nodiscard]] QUrl thumbnailAddress(std::string_view path);

// The path that such an address carries; `id` is the address without its scheme and the provider's name. Empty for
// anything else.
[[nodiscard]] std::string pathOfThumbnail(const QString& id);

}  // namespace vellomar

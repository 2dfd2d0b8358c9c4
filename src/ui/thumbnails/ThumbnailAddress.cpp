#include "ui/thumbnails/ThumbnailAddress.h"

#include <QByteArray>
#include <algorithm>
#include <array>

#include "platform/Path.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

constexpr std::array<std::string_view, 17> kDecodable = {"jpg",  "jpeg", "png",  "heic", "heif", "tif",
                                                         "tiff", "bmp",  "webp", "arw",  "cr2",  "cr3",
                                                         "nef",  "orf",  "raf",  "rw2",  "dng"};
constexpr auto kAlphabet = QByteArray::Base64UrlEncoding | QByteArray::AbortOnBase64DecodingErrors;

}  // namespace

QUrl thumbnailAddress(std::string_view path) {
    const auto extension = lowercased(pathExtension(path));
    if (std::ranges::find(kDecodable, extension) == kDecodable.end()) return {};
    // Percent signs would not do: they are decoded on the way, as text.
    const QByteArray bytes(path.data(), static_cast<qsizetype>(path.size()));
    return {QStringLiteral("image://thumbnails/") + QString::fromLatin1(bytes.toBase64(kAlphabet))};
}

std::string pathOfThumbnail(const QString& id) {
    const auto decoded = QByteArray::fromBase64Encoding(id.toLatin1(), kAlphabet);
    return decoded ? decoded.decoded.toStdString() : std::string();
}

}  // namespace vellomar

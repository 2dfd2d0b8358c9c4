#include "ui/desktop/FileUri.h"

#include <algorithm>
#include <utility>

namespace vellomar {
namespace {

constexpr std::string_view kScheme = "file:";
constexpr std::string_view kThisMachine = "localhost";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isSameWord(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, lowered, lowered);
}

bool standsForItself(char c) {
    const char letter = lowered(c);
    return (letter >= 'a' && letter <= 'z') || (c >= '0' && c <= '9') ||
           std::string_view("-._~/").find(c) != std::string_view::npos;
}

std::optional<unsigned> hexValue(char c) {
    const char letter = lowered(c);
    if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
    if (letter >= 'a' && letter <= 'f') return static_cast<unsigned>(letter - 'a') + 10U;
    return std::nullopt;
}

// The byte that the two digits at the start of `digits` give.
std::optional<char> escapedByte(std::string_view digits) {
    if (digits.size() < 2) return std::nullopt;
    const auto high = hexValue(digits[0]);
    const auto low = hexValue(digits[1]);
    if (!high || !low) return std::nullopt;
    const auto byte = static_cast<char>(*high * 16U + *low);
    if (byte == '\0' || byte == '/') return std::nullopt;
    return byte;
}

std::optional<std::string> unescaped(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '?' || text[i] == '#' || text[i] == '\0') return std::nullopt;
        if (text[i] != '%') {
            bytes += text[i];
            continue;
        }
        const auto byte = escapedByte(text.substr(i + 1));
        if (!byte) return std::nullopt;
        bytes += *byte;
        i += 2;
    }
    return bytes;
}

// What follows the host, if that is this machine or not given.
std::optional<std::string_view> withoutHost(std::string_view text) {
    if (!text.starts_with("//")) return text;
    text.remove_prefix(2);
    const auto slash = std::min(text.find('/'), text.size());
    const auto host = text.substr(0, slash);
    if (!host.empty() && !isSameWord(host, kThisMachine)) return std::nullopt;
    return text.substr(slash);
}

}  // namespace

std::string fileUriOf(std::string_view path) {
    std::string uri = "file://";
    for (const char c : path) {
        if (standsForItself(c)) {
            uri += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        uri += {'%', kHexDigits[byte / 16U], kHexDigits[byte % 16U]};
    }
    return uri;
}

std::optional<std::string> pathOfFileUri(std::string_view uri) {
    if (!isSameWord(uri.substr(0, kScheme.size()), kScheme)) return std::nullopt;
    const auto path = withoutHost(uri.substr(kScheme.size()));
    if (!path || !path->starts_with('/')) return std::nullopt;
    return unescaped(*path);
}

std::optional<std::string> pathOfFileUrl(const QUrl& url) {
    // The encoded form has the bytes as they are; text could not hold all of them.
    return pathOfFileUri(url.toEncoded().toStdString());
}

std::vector<std::string> pathsOfFileUrls(const QList<QUrl>& urls) {
    std::vector<std::string> paths;
    for (const QUrl& url : urls)
        if (auto path = pathOfFileUrl(url)) paths.push_back(*std::move(path));
    return paths;
}

}  // namespace vellomar

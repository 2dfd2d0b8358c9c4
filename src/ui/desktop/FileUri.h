// Files as the desktop names them: "file" URIs, in which any byte of a path can be written.
#pragma once

#include <QList>
#include <QUrl>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellomar {

// The URI of the absolute path `path`. Every byte that could mean something else in a URI is percent-encoded, so that
// the URI is plain ASCII whatever the path's encoding.
[[nodiscard]] std::string fileUriOf(std::string_view path);

// The bytes of the path that `uri` names. Nothing where it names no file of this machine: another scheme or host, a
// query or fragment, a broken escape, or an escape for a byte that no file name can have ("/" and NUL).
[[nodiscard]] std::optional<std::string> pathOfFileUri(std::string_view uri);

// The same for a URL as Qt hands it on. Those that name no file of this machine are left out of a list.
[[nodiscard]] std::optional<std::string> pathOfFileUrl(const QUrl& url);
[[nodiscard]] std::vector<std::string> pathsOfFileUrls(const QList<QUrl>& urls);

}  // namespace vellomar

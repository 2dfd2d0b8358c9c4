#include "platform/Path.h"

namespace vellomar {

std::string_view lastPathComponent(std::string_view path) {
    const auto slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string_view parentPath(std::string_view path) {
    const auto slash = path.rfind('/');
    if (slash == std::string_view::npos) return {};
    return path.substr(0, slash == 0 ? 1 : slash);
}

std::string_view pathExtension(std::string_view path) {
    const auto name = lastPathComponent(path);
    const auto dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0) return {};
    return name.substr(dot + 1);
}

std::string_view pathStem(std::string_view path) {
    const auto name = lastPathComponent(path);
    const auto extension = pathExtension(name);
    return extension.empty() ? name : name.substr(0, name.size() - extension.size() - 1);
}

std::string joinPath(std::string_view folder, std::string_view name) {
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    path = folder;
    if (!path.empty() && path.back() != '/') path += '/';
    path += name;
    return path;
}

std::string withoutTrailingSlashes(std::string_view path) {
    while (path.size() > 1 && path.back() == '/')
        path.remove_suffix(1);
    return std::string(path);
}

bool isWithin(std::string_view path, std::string_view folder) {
    if (!path.starts_with(folder)) return false;
    return path.size() == folder.size() || folder.ends_with('/') || path[folder.size()] == '/';
}

}  // namespace vellomar

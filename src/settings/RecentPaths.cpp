#include "settings/RecentPaths.h"

#include <algorithm>

#include "settings/SettingsKeys.h"

namespace vellomar {
namespace {

constexpr char kSeparator = '|';
constexpr std::size_t kMostPaths = 5;

std::vector<std::string> split(std::string_view text) {
    std::vector<std::string> paths;
    while (!text.empty()) {
        const auto end = std::min(text.find(kSeparator), text.size());
        paths.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return paths;
}

std::string joined(const std::vector<std::string>& paths) {
    std::string text;
    for (const auto& path : paths) {
        if (!text.empty()) text += kSeparator;
        text += path;
    }
    return text;
}

void add(SettingsStore& settings, std::string_view key, std::string_view path) {
    auto paths = split(settings.text(key));
    std::erase(paths, path);
    paths.emplace(paths.begin(), path);
    if (paths.size() > kMostPaths) paths.resize(kMostPaths);
    settings.setValue(key, joined(paths));
}

}  // namespace

std::vector<std::string> recentSources(const SettingsStore& settings) {
    return split(settings.text(keys::kRecentSources));
}

std::vector<std::string> recentDests(const SettingsStore& settings) {
    return split(settings.text(keys::kRecentDests));
}

void addRecentSource(SettingsStore& settings, std::string_view path) {
    add(settings, keys::kRecentSources, path);
}

void addRecentDest(SettingsStore& settings, std::string_view path) {
    add(settings, keys::kRecentDests, path);
}

}  // namespace vellomar

#include "settings/SourceList.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "settings/SettingsKeys.h"

namespace vellomar {
namespace {

std::optional<std::vector<SourceEntry>> keptEntries(const SettingsStore& settings) {
    const auto text = settings.bytes(keys::kSourceEntries);
    return text ? sourceEntriesFrom(*text) : std::nullopt;
}

}  // namespace

void SourceList::loadSourceEntries() {
    entries_.clear();
    if (auto kept = keptEntries(settings_)) {
        entries_ = *std::move(kept);
    } else if (const auto path = settings_.text(keys::kLegacySourcePath); !path.empty()) {
        entries_.push_back({Uuid::random(), path, settings_.bytes(keys::kLegacySourceBookmark)});
        saveSourceEntries();
    }
}

std::vector<std::string> SourceList::paths() const {
    std::vector<std::string> paths;
    std::ranges::transform(entries_, std::back_inserter(paths), &SourceEntry::path);
    return paths;
}

bool SourceList::contains(const std::string& path) const {
    return std::ranges::find(entries_, path, &SourceEntry::path) != entries_.end();
}

bool SourceList::add(const std::string& path) {
    if (contains(path)) return false;
    entries_.push_back({Uuid::random(), path, {}});
    saveSourceEntries();
    return true;
}

void SourceList::removeAt(std::size_t index) {
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
    saveSourceEntries();
}

void SourceList::clear() {
    entries_.clear();
    saveSourceEntries();
}

void SourceList::saveSourceEntries() {
    settings_.setBytes(keys::kSourceEntries, sourceEntriesText(entries_));
}

}  // namespace vellomar

#include "settings/SourceEntry.h"

#include <utility>

#include "settings/JsonValues.h"

namespace vellomar {
namespace {

Json jsonOf(const SourceEntry& entry) {
    Json object = {{"id", entry.id.text()}, {"path", entry.path}};
    if (entry.bookmarkData) object["bookmarkData"] = base64Of(*entry.bookmarkData);
    return object;
}

// False when it is there and is no base64 text.
bool readBookmark(const Json& object, std::optional<std::string>& bookmark) {
    const auto* member = memberOf(object, "bookmarkData");
    if (member == nullptr || member->is_null()) return true;
    const auto text = textFrom(*member);
    if (text) bookmark = bytesFromBase64(*text);
    return bookmark.has_value();
}

std::optional<SourceEntry> entryFrom(const Json& object) {
    const auto id = uuidMember(object, "id");
    auto path = textMember(object, "path");
    if (!id || !path) return std::nullopt;
    SourceEntry entry{*id, *std::move(path), {}};
    if (!readBookmark(object, entry.bookmarkData)) return std::nullopt;
    return entry;
}

}  // namespace

std::string sourceEntriesText(const std::vector<SourceEntry>& entries) {
    Json list = Json::array();
    for (const auto& entry : entries)
        list.push_back(jsonOf(entry));
    return jsonText(list);
}

std::optional<std::vector<SourceEntry>> sourceEntriesFrom(std::string_view text) {
    return wholeListFrom<SourceEntry>(text, entryFrom);
}

}  // namespace vellomar

#include "undo/ManifestText.h"

#include "platform/BytesJson.h"
#include "undo/IsoTime.h"

namespace vellomar {
namespace {

constexpr std::string_view kCopy = "copy";
constexpr std::string_view kMove = "move";

std::string_view rawText(UndoEntry::OpType op) {
    return op == UndoEntry::OpType::copy ? kCopy : kMove;
}

std::optional<UndoEntry::OpType> opFrom(std::string_view text) {
    if (text == kCopy) return UndoEntry::OpType::copy;
    if (text == kMove) return UndoEntry::OpType::move;
    return std::nullopt;
}

// `"key": "value"` on a line of its own, with what goes before and behind it.
void appendMember(std::string& text, std::string_view before, std::string_view key, std::string_view value,
                  std::string_view behind) {
    text.append(before).append("\"").append(key).append("\": ");
    text.append(jsonText(Json(std::string(value)))).append(behind);
}

// Written entry by entry: a tree of JSON values over a whole library would take gigabytes.
void appendEntry(std::string& text, const UndoEntry& entry) {
    constexpr std::string_view kIndent = "      ";
    text += "    {\n";
    appendMember(text, kIndent, "destination", entry.destination, ",\n");
    appendMember(text, kIndent, "op", rawText(entry.op), ",\n");
    if (entry.sha256) appendMember(text, kIndent, "sha256", *entry.sha256, ",\n");
    appendMember(text, kIndent, "source", entry.source, ",\n");
    appendMember(text, kIndent, "timestamp", isoTimeText(entry.timestamp), "\n");
    text += "    }";
}

void appendEntries(std::string& text, const std::vector<UndoEntry>& entries) {
    text += "  \"entries\": [";
    std::string_view separator = "\n";
    for (const auto& entry : entries) {
        text += separator;
        appendEntry(text, entry);
        separator = ",\n";
    }
    text += entries.empty() ? "],\n" : "\n  ],\n";
}

std::optional<std::string> textMember(const Json& object, const char* key) {
    const auto member = object.find(key);
    if (member == object.end() || !member->is_string()) return std::nullopt;
    return member->get<std::string>();
}

// False when the value is there and is no text.
bool readOptionalText(const Json& object, const char* key, std::optional<std::string>& value) {
    const auto member = object.find(key);
    if (member == object.end() || member->is_null()) return true;
    value = textMember(object, key);
    return value.has_value();
}

std::optional<UndoEntry::OpType> opMember(const Json& object, const char* key) {
    const auto text = textMember(object, key);
    return text ? opFrom(*text) : std::nullopt;
}

std::optional<Instant> timeMember(const Json& object, const char* key) {
    const auto text = textMember(object, key);
    return text ? instantFromIsoTime(*text) : std::nullopt;
}

std::optional<UndoEntry> entryFrom(const Json& object) {
    const auto op = opMember(object, "op");
    auto source = textMember(object, "source");
    auto destination = textMember(object, "destination");
    const auto timestamp = timeMember(object, "timestamp");
    std::optional<std::string> sha256;
    if (!op || !source || !destination || !timestamp || !readOptionalText(object, "sha256", sha256))
        return std::nullopt;
    return UndoEntry{*op, std::move(*source), std::move(*destination), std::move(sha256), *timestamp};
}

// The entries of a text that is being read, taken over one by one.
struct EntryCollector {
    std::vector<UndoEntry> entries;
    bool allWellFormed = true;

    // Whether the object stays in what was read: entries do not, once they are taken over.
    bool keep(const JsonPlace& place, const Json& object) {
        if (place.depth != 2 || place.topLevelKey != "entries") return true;
        auto entry = entryFrom(object);
        allWellFormed = allWellFormed && entry.has_value();
        if (entry) entries.push_back(std::move(*entry));
        return false;
    }
};

// Whether there is a list of entries and nothing else stood in it.
bool hasListOfObjects(const Json& object) {
    const auto entries = object.find("entries");
    return entries != object.end() && entries->is_array() && entries->empty();
}

}  // namespace

std::string manifestText(const UndoManifest& manifest) {
    std::string text = "{\n";
    appendMember(text, "  ", "destRoot", manifest.destRoot, ",\n");
    appendEntries(text, manifest.entries);
    appendMember(text, "  ", "runID", manifest.runID, ",\n");
    appendMember(text, "  ", "sourceRoot", manifest.sourceRoot, "\n");
    text += "}";
    return text;
}

std::optional<UndoManifest> manifestFromText(std::string_view text) {
    EntryCollector collector;
    const auto object =
        parseJson(text, [&](const JsonPlace& place, const Json& read) { return collector.keep(place, read); });
    if (!object || !object->is_object() || !collector.allWellFormed || !hasListOfObjects(*object)) return std::nullopt;
    auto runID = textMember(*object, "runID");
    auto sourceRoot = textMember(*object, "sourceRoot");
    auto destRoot = textMember(*object, "destRoot");
    if (!runID || !sourceRoot || !destRoot) return std::nullopt;
    return UndoManifest{std::move(*runID), std::move(*sourceRoot), std::move(*destRoot), std::move(collector.entries)};
}

}  // namespace vellomar

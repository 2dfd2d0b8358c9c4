#include "driver/Arguments.h"

#include <functional>
#include <map>
#include <stdexcept>
#include <string_view>

#include <fmt/format.h>

namespace vellomar::driver {
namespace {

using OptionReader = std::function<void(Options&, const Json&)>;

// Null where the argument is left out or null.
const Json* find(const Json& arguments, const char* name) {
    const auto found = arguments.find(name);
    return found == arguments.end() || found->is_null() ? nullptr : &*found;
}

const Json& required(const Json& arguments, const char* name) {
    const auto* value = find(arguments, name);
    if (value == nullptr) throw std::invalid_argument(fmt::format("argument '{}' is missing", name));
    return *value;
}

template <typename Value>
OptionReader plain(Value Options::*member) {
    return [member](Options& options, const Json& value) { options.*member = value.get<Value>(); };
}

OptionReader flag(bool Options::*member) {
    return [member](Options& options, const Json& value) {
        if (!value.is_boolean()) throw std::invalid_argument("a flag is true or false");
        options.*member = value.get<bool>();
    };
}

template <typename Enum>
OptionReader rawTexted(Enum Options::*member, std::optional<Enum> (*from)(std::string_view)) {
    return [member, from](Options& options, const Json& value) {
        const auto text = value.get<std::string>();
        const auto known = from(text);
        if (!known) throw std::invalid_argument(fmt::format("no such choice: '{}'", text));
        options.*member = *known;
    };
}

const std::map<std::string, OptionReader>& optionReaders() {
    static const std::map<std::string, OptionReader> readers = {
        {"dryRun", flag(&Options::dryRun)},
        {"moveOriginalsWhenReliable", flag(&Options::moveOriginalsWhenReliable)},
        {"parseMonthWords", flag(&Options::parseMonthWords)},
        {"parseNameDates", flag(&Options::parseNameDates)},
        {"useExifToolForImages", flag(&Options::useExifToolForImages)},
        {"useExifToolForVideo", flag(&Options::useExifToolForVideo)},
        {"conflictPolicy", rawTexted(&Options::conflictPolicy, &conflictPolicyFrom)},
        {"computeHashForDuplicates", flag(&Options::computeHashForDuplicates)},
        {"namingStyle", rawTexted(&Options::namingStyle, &namingStyleFrom)},
        {"customFormat", plain(&Options::customFormat)},
        {"includeImages", flag(&Options::includeImages)},
        {"includeVideos", flag(&Options::includeVideos)},
        {"includeOther", flag(&Options::includeOther)},
        {"syncFSDates", flag(&Options::syncFSDates)},
        {"duplicateAction", rawTexted(&Options::duplicateAction, &duplicateActionFrom)},
        {"resumeFromManifest", flag(&Options::resumeFromManifest)},
        {"usePerceptualHash", flag(&Options::usePerceptualHash)},
        {"perceptualHashThreshold", plain(&Options::perceptualHashThreshold)},
        {"verifyAfterCopy", flag(&Options::verifyAfterCopy)},
        {"keepRawJpegPairs", flag(&Options::keepRawJpegPairs)},
        {"moveSidecars", flag(&Options::moveSidecars)},
        {"storageIsNetwork", flag(&Options::storageIsNetwork)},
        {"convertHEICToJPEG", flag(&Options::convertHEICToJPEG)},
        {"stripGPS", flag(&Options::stripGPS)},
        {"stripAllMetadata", flag(&Options::stripAllMetadata)},
    };
    return readers;
}

DateCandidate candidateFrom(const Json& value) {
    return {instantOf(value, "epoch"), textOf(value, "source"), static_cast<int>(numberOf(value, "score"))};
}

FolderRenameRule ruleFrom(const Json& value) {
    FolderRenameRule rule;
    rule.matchText = textOf(value, "matchText");
    rule.replacement = textOf(value, "replacement");
    rule.isEnabled = flagOf(value, "isEnabled", true);
    return rule;
}

}  // namespace

std::string textOf(const Json& arguments, const char* name) {
    const auto& value = required(arguments, name);
    if (!value.is_string()) throw std::invalid_argument(fmt::format("argument '{}' is no text", name));
    return value.get<std::string>();
}

std::optional<std::string> optionalTextOf(const Json& arguments, const char* name) {
    if (find(arguments, name) == nullptr) return std::nullopt;
    return textOf(arguments, name);
}

double numberOf(const Json& arguments, const char* name) {
    const auto& value = required(arguments, name);
    if (!value.is_number()) throw std::invalid_argument(fmt::format("argument '{}' is no number", name));
    return value.get<double>();
}

bool flagOf(const Json& arguments, const char* name, bool valueIfAbsent) {
    const auto* value = find(arguments, name);
    if (value == nullptr) return valueIfAbsent;
    if (!value->is_boolean()) throw std::invalid_argument(fmt::format("argument '{}' is no flag", name));
    return value->get<bool>();
}

std::vector<std::string> textsOf(const Json& arguments, const char* name) {
    const auto& value = required(arguments, name);
    if (!value.is_array()) throw std::invalid_argument(fmt::format("argument '{}' is no list", name));
    return value.get<std::vector<std::string>>();
}

Instant instantOf(const Json& arguments, const char* name) {
    constexpr double kFarthest = 9e12;  // seconds; beyond it an instant overflows
    const double seconds = numberOf(arguments, name);
    if (!(seconds > -kFarthest && seconds < kFarthest))
        throw std::invalid_argument(fmt::format("argument '{}' is no instant", name));
    return instantFromUnixSeconds(seconds);
}

Options optionsOf(const Json& arguments) {
    Options options;
    const auto* given = find(arguments, "options");
    if (given == nullptr) return options;
    if (!given->is_object()) throw std::invalid_argument("argument 'options' is no object");
    for (const auto& [name, value] : given->items()) {
        const auto reader = optionReaders().find(name);
        if (reader == optionReaders().end()) throw std::invalid_argument(fmt::format("no such option: '{}'", name));
        if (!value.is_null()) reader->second(options, value);
    }
    return options;
}

std::vector<FolderRenameRule> rulesOf(const Json& arguments) {
    std::vector<FolderRenameRule> rules;
    if (const auto* given = find(arguments, "rules"); given != nullptr)
        for (const auto& rule : *given)
            rules.push_back(ruleFrom(rule));
    return rules;
}

ExifDates exifDatesOf(const Json& arguments) {
    ExifDates dates;
    if (const auto* given = find(arguments, "exifDates"); given != nullptr)
        for (const auto& [path, candidate] : given->items())
            dates.emplace(path, candidateFrom(candidate));
    return dates;
}

ExifCameras exifCamerasOf(const Json& arguments) {
    ExifCameras cameras;
    if (const auto* given = find(arguments, "exifCameras"); given != nullptr)
        for (const auto& [path, camera] : given->items())
            cameras.emplace(path, camera.get<std::string>());
    return cameras;
}

}  // namespace vellomar::driver

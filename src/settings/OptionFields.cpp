#include "settings/OptionFields.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

#include "settings/JsonValues.h"

namespace vellomar {
namespace {

constexpr std::array kFields = {
    OptionField{"opt_dryRun", "dryRun", &Options::dryRun},
    OptionField{"opt_moveOriginals", "moveOriginalsWhenReliable", &Options::moveOriginalsWhenReliable},
    OptionField{"opt_parseNameDates", "parseNameDates", &Options::parseNameDates},
    OptionField{"opt_parseMonthWords", "parseMonthWords", &Options::parseMonthWords},
    OptionField{"opt_computeHash", "computeHashForDuplicates", &Options::computeHashForDuplicates},
    OptionField{"opt_useExifImages", "useExifToolForImages", &Options::useExifToolForImages},
    OptionField{"opt_useExifVideo", "useExifToolForVideo", &Options::useExifToolForVideo},
    OptionField{"opt_conflictPolicy", "conflictPolicy", &Options::conflictPolicy},
    OptionField{"opt_namingStyle", "namingStyle", &Options::namingStyle},
    OptionField{"opt_customFormat", "customFormat", &Options::customFormat},
    OptionField{"opt_includeImages", "includeImages", &Options::includeImages},
    OptionField{"opt_includeVideos", "includeVideos", &Options::includeVideos},
    OptionField{"opt_includeOther", "includeOther", &Options::includeOther},
    OptionField{"opt_syncFSDates", "syncFSDates", &Options::syncFSDates},
    OptionField{"opt_duplicateAction", "duplicateAction", &Options::duplicateAction},
    OptionField{"opt_resume", "resumeFromManifest", &Options::resumeFromManifest},
    OptionField{"opt_pHash", "usePerceptualHash", &Options::usePerceptualHash},
    OptionField{"opt_pHashThreshold", "perceptualHashThreshold", &Options::perceptualHashThreshold},
    OptionField{"opt_verifyAfterCopy", "verifyAfterCopy", &Options::verifyAfterCopy},
    OptionField{"opt_keepRawJpeg", "keepRawJpegPairs", &Options::keepRawJpegPairs},
    OptionField{"opt_moveSidecars", "moveSidecars", &Options::moveSidecars},
    OptionField{"opt_storageIsNAS", "storageIsNetwork", &Options::storageIsNetwork},
    OptionField{"opt_convertHEIC", "convertHEICToJPEG", &Options::convertHEICToJPEG},
    OptionField{"opt_stripGPS", "stripGPS", &Options::stripGPS},
    OptionField{"opt_stripAllMeta", "stripAllMetadata", &Options::stripAllMetadata},
};

Json jsonOf(bool value) {
    return value;
}

Json jsonOf(int value) {
    return value;
}

Json jsonOf(const std::string& value) {
    return value;
}

template <typename Enum>
Json jsonOf(Enum value) {
    return std::string(rawText(value));
}

template <typename Enum>
std::optional<Enum> caseFrom(const Json& value, std::optional<Enum> (*caseNamed)(std::string_view)) {
    const auto text = textFrom(value);
    return text ? caseNamed(*text) : std::nullopt;
}

template <typename Value>
bool put(std::optional<Value> value, Value& target) {
    if (!value) return false;
    target = *std::move(value);
    return true;
}

bool read(const Json& value, bool& target) {
    return put(booleanFrom(value), target);
}

bool read(const Json& value, int& target) {
    return put(integerFrom(value), target);
}

bool read(const Json& value, std::string& target) {
    return put(textFrom(value), target);
}

bool read(const Json& value, ConflictPolicy& target) {
    return put(caseFrom(value, conflictPolicyFrom), target);
}

bool read(const Json& value, NamingStyle& target) {
    return put(caseFrom(value, namingStyleFrom), target);
}

bool read(const Json& value, DuplicateAction& target) {
    return put(caseFrom(value, duplicateActionFrom), target);
}

}  // namespace

std::span<const OptionField> optionFields() {
    return kFields;
}

const OptionField& optionField(std::string_view key) {
    return *std::ranges::find(kFields, key, &OptionField::key);
}

Json optionValue(const Options& options, const OptionField& field) {
    return std::visit([&](auto member) { return jsonOf(options.*member); }, field.member);
}

bool setOption(Options& options, const OptionField& field, const Json& value) {
    return std::visit([&](auto member) { return read(value, options.*member); }, field.member);
}

}  // namespace vellomar

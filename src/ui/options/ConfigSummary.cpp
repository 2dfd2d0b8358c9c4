#include "ui/options/ConfigSummary.h"

#include <QCoreApplication>

#include "ui/options/NamingStyles.h"
#include "ui/options/OptionLabels.h"
#include "ui/theme/Theme.h"

namespace vellomar {
namespace {

QString words(const char* text) {
    return QCoreApplication::translate("ConfigSummary", text);
}

ConfigRow choice(const char* key, const QString& value) {
    return {words(key), value, Theme::shared().yellow};
}

ConfigRow state(const char* key, bool isOn) {
    const auto& theme = Theme::shared();
    return {words(key), isOn ? words("On") : words("Off"), isOn ? theme.yellow : theme.offText};
}

ConfigRow count(const char* key, const char* some, std::size_t number) {
    if (number > 0) return choice(key, words(some).arg(number));
    return {words(key), words("None"), Theme::shared().offText};
}

}  // namespace

std::vector<ConfigSection> configSections(const Options& options, std::size_t presets, std::size_t activeRules) {
    return {
        {words("GENERAL"),
         {choice("Mode", options.moveOriginalsWhenReliable ? words("Move") : words("Copy")),
          state("Dry run", options.dryRun), state("ExifTool", options.useExifToolForImages),
          state("Verify", options.verifyAfterCopy), choice("Conflict", conflictLabel(options.conflictPolicy))}},
        {words("NAMING"), {choice("Style", namingStyleLabel(options.namingStyle))}},
        {words("DUPLICATES"),
         {state("Hash scan", options.computeHashForDuplicates), state("pHash", options.usePerceptualHash),
          choice("Action", duplicateActionLabel(options.duplicateAction))}},
        {words("STORAGE"), {state("NAS mode", options.storageIsNetwork), state("Resume", options.resumeFromManifest)}},
        {words("PRIVACY"),
         {state("HEIC→JPEG", options.convertHEICToJPEG), state("Strip GPS", options.stripGPS),
          state("Strip meta", options.stripAllMetadata)}},
        {words("PRESETS & RULES"),
         {count("Presets", "%1 saved", presets), count("Rename rules", "%1 active", activeRules)}}};
}

}  // namespace vellomar

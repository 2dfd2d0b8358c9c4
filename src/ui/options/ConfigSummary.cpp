#include "ui/options/ConfigSummary.h"

#include <QCoreApplication>

#include "ui/options/NamingStyles.h"
#include "ui/options/OptionLabels.h"
#include "ui/theme/Theme.h"

namespace vellomar {
namespace {

QString summaryWords(const char* text) {
    return QCoreApplication::translate("ConfigSummary", text);
}

ConfigRow choice(const char* key, const QString& value) {
    return {summaryWords(key), value, Theme::shared().yellow};
}

ConfigRow state(const char* key, bool isOn) {
    const auto& theme = Theme::shared();
    return {summaryWords(key), isOn ? summaryWords("On") : summaryWords("Off"), isOn ? theme.yellow : theme.offText};
}

ConfigRow count(const char* key, const char* some, std::size_t number) {
    if (number > 0) return choice(key, summaryWords(some).arg(number));
    return {summaryWords(key), summaryWords("None"), Theme::shared().offText};
}

}  // namespace

std::vector<ConfigSection> configSections(const Options& options, std::size_t presets, std::size_t activeRules) {
    return {{summaryWords("GENERAL"),
             {choice("Mode", options.moveOriginalsWhenReliable ? summaryWords("Move") : summaryWords("Copy")),
              state("Dry run", options.dryRun), state("ExifTool", options.useExifToolForImages),
              state("Verify", options.verifyAfterCopy), choice("Conflict", conflictLabel(options.conflictPolicy))}},
            {summaryWords("NAMING"), {choice("Style", namingStyleLabel(options.namingStyle))}},
            {summaryWords("DUPLICATES"),
             {state("Hash scan", options.computeHashForDuplicates), state("pHash", options.usePerceptualHash),
              choice("Action", duplicateActionLabel(options.duplicateAction))}},
            {summaryWords("STORAGE"),
             {state("NAS mode", options.storageIsNetwork), state("Resume", options.resumeFromManifest)}},
            {summaryWords("PRIVACY"),
             {state("HEIC→JPEG", options.convertHEICToJPEG), state("Strip GPS", options.stripGPS),
              state("Strip meta", options.stripAllMetadata)}},
            {summaryWords("PRESETS & RULES"),
             {count("Presets", "%1 saved", presets), count("Rename rules", "%1 active", activeRules)}}};
}

}  // namespace vellomar

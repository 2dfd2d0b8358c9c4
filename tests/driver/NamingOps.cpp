#include "dates/DateDecision.h"
#include "dates/EmbeddedMetadataReader.h"
#include "dates/FilenameDates.h"
#include "dates/FolderDates.h"
#include "dates/SiblingYear.h"
#include "driver/Arguments.h"
#include "driver/Ops.h"
#include "driver/Results.h"
#include "naming/BuildDestination.h"
#include "naming/EventFolders.h"
#include "naming/NamingTemplate.h"
#include "naming/RenameRules.h"
#include "platform/LinuxFileSystem.h"
#include "platform/Path.h"
#include "support/DecoderProgram.h"
#include "support/EngineHarness.h"

namespace vellomar::driver {
namespace {

Json nameDate(const Json& arguments) {
    return jsonOf(filenameCandidate(textOf(arguments, "stem"), SystemClock().now()));
}

Json folderDate(const Json& arguments) {
    const auto found =
        folderYearMonth(textOf(arguments, "path"), flagOf(arguments, "parseMonthWords", true), SystemClock().now());
    if (!found) return nullptr;
    return {{"year", found->year}, {"month", jsonOf(found->month)}};
}

Json neighboursYear(const Json& arguments) {
    LinuxFileSystem fileSystem;
    EmbeddedMetadataReader reader(fileSystem, testing::decoderProgram());
    SiblingYears years;
    return jsonOf(years.siblingYear(textsOf(arguments, "entries"), textOf(arguments, "file"), reader));
}

Json decision(const Json& arguments) {
    LinuxFileSystem fileSystem;
    const SystemClock clock;
    const testing::FixedUserDefaults userDefaults(flagOf(arguments, "floppyMode", false));
    EmbeddedMetadataReader reader(fileSystem, testing::decoderProgram());
    FolderEvidenceCache folderEvidence;
    SiblingYears siblingYears;
    const auto path = textOf(arguments, "path");
    const auto sourceRoot = withoutTrailingSlashes(textOf(arguments, "sourceRoot"));
    const auto dest = withoutTrailingSlashes(textOf(arguments, "dest"));
    const auto options = optionsOf(arguments);
    const auto exifDates = exifDatesOf(arguments);
    const auto exifCameras = exifCamerasOf(arguments);
    const auto rules = rulesOf(arguments);
    return jsonOf(decideFile({.fileSystem = fileSystem,
                              .clock = clock,
                              .userDefaults = userDefaults,
                              .metadataReader = &reader,
                              .folderEvidence = folderEvidence,
                              .siblingYears = siblingYears},
                             {.path = path,
                              .sourceRoot = sourceRoot,
                              .dest = dest,
                              .options = options,
                              .exifDates = exifDates,
                              .exifCameras = exifCameras,
                              .rules = rules}));
}

Json destination(const Json& arguments) {
    return buildDestination(textOf(arguments, "source"), instantOf(arguments, "epoch"),
                            optionalTextOf(arguments, "event"), textOf(arguments, "dest"), optionsOf(arguments));
}

Json templatePreview(const Json& arguments) {
    return renderTemplatePreview(textOf(arguments, "format"));
}

Json folders(const Json& arguments) {
    const auto found =
        meaningfulFolders(textOf(arguments, "path"), rulesOf(arguments), flagOf(arguments, "floppyMode", false));
    return {{"first", jsonOf(found.first)}, {"tail", found.tail}};
}

Json renamed(const Json& arguments) {
    return applyRenameRules(textOf(arguments, "name"), rulesOf(arguments), flagOf(arguments, "floppyMode", false));
}

}  // namespace

void addNamingOps(Ops& ops) {
    ops["filenameCandidate"] = nameDate;
    ops["folderYearMonth"] = folderDate;
    ops["siblingYear"] = neighboursYear;
    ops["decideFile"] = decision;
    ops["buildDestination"] = destination;
    ops["renderTemplatePreview"] = templatePreview;
    ops["meaningfulFolders"] = folders;
    ops["applyRenameRules"] = renamed;
}

}  // namespace vellomar::driver

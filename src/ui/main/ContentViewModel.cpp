#include "ui/main/ContentViewModel.h"

#include "settings/OptionSettings.h"
#include "settings/SettingsKeys.h"
#include "ui/components/TextFormatters.h"
#include "ui/options/ConfigSummary.h"
#include "ui/options/HashGuard.h"

namespace vellomar {
namespace {

Inspector::Surroundings inspectorOf(const ContentViewModel::Surroundings& surroundings) {
    return {surroundings.fileFacts, surroundings.reveal, surroundings.links, surroundings.background};
}

}  // namespace

ContentViewModel::ContentViewModel(const Surroundings& surroundings, QObject* parent)
    : QObject(parent),
      surroundings_(surroundings),
      status_(surroundings.engine.state(), surroundings.events),
      log_(surroundings.engine.state(), surroundings.events),
      folders_({surroundings.settings, surroundings.fileSystem, surroundings.chooser, surroundings.background}),
      run_(surroundings.engine, surroundings.events, surroundings.settings, folders_.sourceList()),
      undo_({surroundings.engine, surroundings.events, surroundings.settings, surroundings.fileSystem,
             surroundings.chooser, surroundings.background}),
      shift_({surroundings.mainActor, surroundings.fileSystem, surroundings.exifTool, surroundings.sleepInhibitor}),
      dates_({folders_.sourceList(), surroundings.engine, surroundings.events, shift_, surroundings.fileSystem,
              surroundings.chooser, surroundings.background}),
      exports_({surroundings.engine.state(), log_, surroundings.clock, surroundings.fileSystem, surroundings.chooser,
                surroundings.background}),
      quit_(surroundings.engine, surroundings.events, shift_),
      naming_(surroundings.settings),
      options_(surroundings.settings,
               [this] { return mayHashForHours(run_.estimate(), !folders_.sourceList().entries().empty()); }),
      plan_(FilePlan::Shows::allRows, surroundings.engine.state(), surroundings.events, inspectorOf(surroundings)),
      planWindow_(surroundings.engine.state(), surroundings.events, inspectorOf(surroundings)),
      presets_(surroundings.settings),
      watch_({surroundings.sharedEngine, surroundings.events, surroundings.settings, folders_.sourceList(),
              surroundings.mainActor, surroundings.fileSystem, surroundings.clock, surroundings.folderWatcher}),
      duplicates_({surroundings.engine.state(), surroundings.events, surroundings.fileSystem, surroundings.reveal,
                   surroundings.background.runner()}),
      statistics_(surroundings.engine.state(), surroundings.events),
      help_(surroundings.links),
      firstRun_(surroundings.settings, surroundings.mainActor, {folders_, surroundings.chooser, surroundings.links}),
      dryRun_(ConfirmationModel::Run::dry),
      realRun_(ConfirmationModel::Run::real) {
    connectFolders();
    connectRun();
    connectSettings();
    connectLists();
    connectCards();
    connectDates();
}

void ContentViewModel::appear() {
    presets_.loadPresets();
    folders_.load();
    firstRun_.offerWizard();
    auto options = buildOptions(surroundings_.settings);
    options.includeVideos = false;
    saveOption(surroundings_.settings, options, "opt_includeVideos");
    cameraCards_ =
        std::make_unique<CameraCards>(surroundings_.mainActor, surroundings_.fileSystem, surroundings_.mounts,
                                      [this](const std::string& card) { cards_.offer(card); });
    lookForExifTool();
}

std::optional<Banner> ContentViewModel::banner() const {
    return bannerFor(surroundings_.engine.state(), isSameFolder(folders_.sourceList().paths(), folders_.dest()),
                     lowSpace());
}

QString ContentViewModel::bannerSymbol() const {
    const auto shown = banner();
    return shown ? shown->symbol : QString();
}

QColor ContentViewModel::bannerColour() const {
    const auto shown = banner();
    return shown ? shown->colour : QColor();
}

QString ContentViewModel::bannerText() const {
    const auto shown = banner();
    return shown ? shown->text : QString();
}

QString ContentViewModel::lowSpace() const {
    return lowSpaceText(folders_.dest(), run_.estimate(), folders_.freeBytes());
}

QVariantList ContentViewModel::config() const {
    QVariantList sections;
    for (const auto& section : configSections(buildOptions(surroundings_.settings),
                                              static_cast<std::size_t>(presets_.count()), run_.activeRules())) {
        QVariantList rows;
        for (const auto& row : section.rows)
            rows << QVariantMap{{"key", row.key}, {"value", row.value}, {"colour", row.colour}};
        sections << QVariantMap{{"heading", section.heading}, {"rows", rows}};
    }
    return sections;
}

bool ContentViewModel::floppyMode() const {
    return surroundings_.settings.boolean(keys::kSecretFloppyMode);
}

void ContentViewModel::toggleFloppyMode() {
    surroundings_.settings.setValue(keys::kSecretFloppyMode, !floppyMode());
}

void ContentViewModel::connectFolders() {
    connect(&folders_, &Folders::sourcesChanged, &run_, &RunFlow::noteSources);
    connect(&folders_, &Folders::sourcesChanged, this, &ContentViewModel::bannerChanged);
    connect(&folders_, &Folders::sourcesChanged, &watch_, &WatchFolder::noteSources);
    connect(&folders_, &Folders::changed, this, &ContentViewModel::bannerChanged);
    connect(&folders_, &Folders::refusalChanged, this,
            [this] { notices_.tell(QStringLiteral("folders"), folders_.refusal()); });
}

void ContentViewModel::connectRun() {
    // Comes for every setting, and for the rules.
    connect(&run_, &RunFlow::changed, this, &ContentViewModel::configChanged);
    // A sheet gets what it shows before it opens, and is left alone from then on.
    connect(&run_, &RunFlow::dryRunAsked, this, [this] { dryRun_.setSettings(confirmed(run_.nextRun())); });
    connect(&run_, &RunFlow::runAsked, this, [this] { realRun_.setSettings(confirmed(*run_.pendingRun())); });
    connect(&run_, &RunFlow::estimateChanged, this, &ContentViewModel::noteEstimate);
    connect(&surroundings_.events, &EngineEvents::changed, this, [this](PublishedField field) {
        if (field == PublishedField::integrityReport || field == PublishedField::verifyFailures) emit bannerChanged();
        if (field == PublishedField::isRunning && !surroundings_.engine.state().isRunning) folders_.look();
    });
}

void ContentViewModel::connectSettings() {
    auto& settings = surroundings_.settings;
    connect(&settings, &SettingsStore::changed, this, [this](const QString& key) {
        if (key.toStdString() == keys::kSecretFloppyMode) emit floppyModeChanged();
    });
    connect(&settings, &SettingsStore::cannotSaveChanged, this, &ContentViewModel::tellOfSaving);
    tellOfDamage();
    tellOfSaving();
}

void ContentViewModel::connectLists() {
    connect(&presets_, &PresetsModel::countChanged, this, &ContentViewModel::configChanged);
    connect(&rules_, &RenameRulesModel::changed, this, [this] { run_.setRenameRules(rules_.rules()); });
}

void ContentViewModel::connectCards() {
    connect(&cards_, &CardImport::sourceChosen, &folders_, &Folders::addSource);
}

void ContentViewModel::connectDates() {
    connect(&folders_, &Folders::sourcesChanged, &dates_, &DateCorrection::noteSources);
    // A shift rewrites files in place: no run is to copy one of them half-way, and no undo to move it.
    connect(&shift_, &DateShiftRun::changed, this, [this] {
        run_.setHeldUp(shift_.isRunning());
        undo_.setHeldUp(shift_.isRunning());
        watch_.setHeldUp(shift_.isRunning());
    });
    connect(&dates_, &DateCorrection::noticeChanged, this,
            [this] { notices_.tell(QStringLiteral("shift"), dates_.notice(), Notices::Kind::news); });
}

void ContentViewModel::tellOfDamage() {
    const auto& kept = surroundings_.settings.damagedFile();
    if (kept.empty()) return;
    notices_.tell(
        QStringLiteral("damage"),
        tr("The settings could not be read and start afresh. The old file was kept as %1.").arg(displayText(kept)));
}

void ContentViewModel::tellOfSaving() {
    notices_.tell(QStringLiteral("settings"), surroundings_.settings.cannotSave()
                                                  ? tr("Your settings cannot be saved. They count until you quit; "
                                                       "check the disk and its permissions.")
                                                  : QString());
}

void ContentViewModel::lookForExifTool() {
    surroundings_.background.run(
        [&exifTool = surroundings_.exifTool] { return !exifTool.locateExifTool().has_value(); },
        [this](bool isLacking) {
            lacksExifTool_ = isLacking;
            emit exifToolChanged();
        });
}

void ContentViewModel::noteEstimate() {
    const auto& estimate = run_.estimate();
    status_.setEstimate(estimate);
    if (estimate) {
        realRun_.setEstimate(*estimate);
        folders_.look();
    }
    emit bannerChanged();
}

RunSettings ContentViewModel::confirmed(const RunPayload& run) const {
    return {run.sources, run.dest, run.options, run_.estimate(), run_.activeRules()};
}

}  // namespace vellomar

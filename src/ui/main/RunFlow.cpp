#include "ui/main/RunFlow.h"

#include <QPointer>
#include <algorithm>
#include <utility>

#include "settings/OptionSettings.h"
#include "settings/SettingsKeys.h"

namespace vellomar {

RunFlow::RunFlow(OrganizerEngine& engine, const EngineEvents& events, SettingsStore& settings,
                 const SourceList& sources, QObject* parent)
    : QObject(parent), engine_(engine), settings_(settings), sources_(sources) {
    connect(&settings_, &SettingsStore::changed, this, &RunFlow::changed);
    connect(&events, &EngineEvents::changed, this, [this](PublishedField field) {
        if (field == PublishedField::isRunning) emit changed();
    });
}

bool RunFlow::canRun() const {
    const auto options = buildOptions(settings_);
    return hasFolders() && (options.includeImages || options.includeVideos || options.includeOther);
}

void RunFlow::setHeldUp(bool isHeldUp) {
    if (std::exchange(isHeldUp_, isHeldUp) != isHeldUp) emit changed();
}

bool RunFlow::canEstimate() const {
    return !engine_.state().isRunning && !isEstimating_ && !sources_.entries().empty();
}

void RunFlow::setRenameRules(std::vector<FolderRenameRule> rules) {
    renameRules_ = std::move(rules);
    emit changed();
}

std::size_t RunFlow::activeRules() const {
    return static_cast<std::size_t>(std::ranges::count_if(renameRules_, &FolderRenameRule::isEnabled));
}

void RunFlow::askDryRun() {
    if (!canStart()) return;
    isDryRunAsked_ = true;
    emit dryRunAsked();
    emit changed();
}

void RunFlow::startDryRun() {
    dismissDryRun();
    if (!hasFolders()) return;
    auto run = nextRun();
    run.options.dryRun = true;
    engine_.setRenameRules(renameRules_);
    setEstimate(std::nullopt);
    requestEstimate(run.sources, run.options);
    start(run);
}

void RunFlow::dismissDryRun() {
    isDryRunAsked_ = false;
    emit changed();
}

void RunFlow::askRun() {
    if (!hasFolders() || engine_.state().isRunning || isHeldUp_) return;
    auto run = nextRun();
    run.options.dryRun = false;
    engine_.setRenameRules(renameRules_);
    setEstimate(std::nullopt);
    requestEstimate(run.sources, run.options);
    pendingRun_ = std::move(run);
    emit runAsked();
    emit changed();
}

void RunFlow::confirmRun() {
    if (!pendingRun_) return;
    const auto run = *std::exchange(pendingRun_, std::nullopt);
    emit changed();
    start(run);
}

void RunFlow::dismissRun() {
    pendingRun_.reset();
    emit changed();
}

void RunFlow::switchToDryRun() {
    if (!pendingRun_) return;
    auto run = *std::exchange(pendingRun_, std::nullopt);
    run.options.dryRun = true;
    saveOption(settings_, run.options, "opt_dryRun");
    engine_.setRenameRules(renameRules_);
    emit changed();
    start(run);
}

void RunFlow::makeEstimate() {
    if (!canEstimate()) return;
    isEstimating_ = true;
    emit changed();
    requestEstimate(sources_.paths(), buildOptions(settings_));
}

bool RunFlow::hasFolders() const {
    return !sources_.entries().empty() && !dest().empty();
}

RunPayload RunFlow::nextRun() const {
    return {.sources = sources_.paths(), .dest = dest(), .options = buildOptions(settings_)};
}

std::string RunFlow::dest() const {
    return settings_.text(keys::kDestPath);
}

void RunFlow::start(const RunPayload& run) {
    engine_.startRun(run.sources, run.dest, run.options);
}

void RunFlow::setEstimate(std::optional<RunEstimate> estimate) {
    estimate_ = estimate;
    emit estimateChanged();
}

void RunFlow::requestEstimate(const std::vector<std::string>& sources, const Options& options) {
    const auto request = ++estimateRequests_;
    engine_.estimateRun(sources, options, [self = QPointer(this), request](const RunEstimate& estimate) {
        if (!self || request != self->estimateRequests_) return;
        self->isEstimating_ = false;
        self->setEstimate(estimate);
        emit self->changed();
    });
}

}  // namespace vellomar

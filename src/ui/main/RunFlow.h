#pragma once

#include <QObject>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "engine/OrganizerEngine.h"
#include "naming/FolderRenameRule.h"
#include "settings/SettingsStore.h"
#include "settings/SourceList.h"
#include "ui/main/EngineEvents.h"
#include "ui/main/RunPayload.h"

namespace vellomar {

// When a run may begin, what it begins with, and the way there through its confirmation. Interface thread only.
class RunFlow final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(bool canRun READ canRun NOTIFY changed)
    Q_PROPERTY(bool canStart READ canStart NOTIFY changed)
    Q_PROPERTY(bool canEstimate READ canEstimate NOTIFY changed)
    Q_PROPERTY(bool canCancel READ canCancel NOTIFY changed)
    Q_PROPERTY(bool isEstimating READ isEstimating NOTIFY changed)
    Q_PROPERTY(bool isDryRunAsked READ isDryRunAsked NOTIFY changed)
    Q_PROPERTY(bool isRunAsked READ isRunAsked NOTIFY changed)

public:
    // The three must outlive this; `events` are of that engine.
    RunFlow(OrganizerEngine& engine, const EngineEvents& events, SettingsStore& settings, const SourceList& sources,
            QObject* parent = nullptr);

    // Whether there are a source, a destination and a kind of file to sort. Warnings do not count.
    [[nodiscard]] bool canRun() const;

    // The same, and nothing is under way.
    [[nodiscard]] bool canStart() const { return canRun() && !engine_.state().isRunning && !isHeldUp_; }

    // Whether runs have to wait for something else that works on files.
    void setHeldUp(bool isHeldUp);

    [[nodiscard]] bool canEstimate() const;

    // Whether a run is under way; nothing stops an undo.
    [[nodiscard]] bool canCancel() const { return engine_.state().isRunning && engine_.hasTask(); }
    [[nodiscard]] bool isEstimating() const { return isEstimating_; }

    // Whether a confirmation is open, of a dry run or of a real one.
    [[nodiscard]] bool isDryRunAsked() const { return isDryRunAsked_; }
    [[nodiscard]] bool isRunAsked() const { return pendingRun_.has_value(); }

    // What a run would begin with now: the folders and options as they are set.
    [[nodiscard]] RunPayload nextRun() const;

    // The run that waits for its confirmation.
    [[nodiscard]] const std::optional<RunPayload>& pendingRun() const { return pendingRun_; }

    // The last estimate; nothing while there is none, or while a new one is being made for a run.
    [[nodiscard]] const std::optional<RunEstimate>& estimate() const { return estimate_; }

    // The rules that the next run gets. They are not kept beyond the end of the program.
    [[nodiscard]] const std::vector<FolderRenameRule>& renameRules() const { return renameRules_; }
    void setRenameRules(std::vector<FolderRenameRule> rules);
    [[nodiscard]] std::size_t activeRules() const;

    // To be called when the list of sources has changed.
    void noteSources() { emit changed(); }

    // The dry run: ask, and then begin or not. It is one whatever the setting says.
    Q_INVOKABLE void askDryRun();
    Q_INVOKABLE void startDryRun();
    Q_INVOKABLE void dismissDryRun();

    // The real run, likewise. Asking fixes the options. It may end as a dry run, which then is the setting as well.
    Q_INVOKABLE void askRun();
    Q_INVOKABLE void confirmRun();
    Q_INVOKABLE void dismissRun();
    Q_INVOKABLE void switchToDryRun();

    // Counts what lies in the sources, for the cards.
    Q_INVOKABLE void makeEstimate();

    Q_INVOKABLE void cancelRun() { engine_.cancelRun(); }

signals:
    void changed();
    void estimateChanged();
    // A confirmation is about to open, and what it shows is settled.
    void dryRunAsked();
    void runAsked();

private:
    [[nodiscard]] bool hasFolders() const;
    [[nodiscard]] std::string dest() const;
    void start(const RunPayload& run);
    void setEstimate(std::optional<RunEstimate> estimate);
    // The estimate of an older request never replaces that of a newer one.
    void requestEstimate(const std::vector<std::string>& sources, const Options& options);

    OrganizerEngine& engine_;
    SettingsStore& settings_;
    const SourceList& sources_;
    std::vector<FolderRenameRule> renameRules_;
    std::optional<RunEstimate> estimate_;
    std::uint64_t estimateRequests_ = 0;
    std::optional<RunPayload> pendingRun_;
    bool isEstimating_ = false;
    bool isDryRunAsked_ = false;
    bool isHeldUp_ = false;
};

}  // namespace vellomar

#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <QStringList>
#include <cstddef>
#include <cstdint>
#include <optional>

#include <QtQml/qqmlregistration.h>

#include "engine/PublishedState.h"
#include "engine/model/RunEstimate.h"
#include "ui/main/EngineEvents.h"

namespace vellomar {

// What the window tells of the run, or of the undo, that is under way or was the last one: pill, pipeline, progress,
// cards and bottom bar. Interface thread only.
class RunStatus final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY changed)
    Q_PROPERTY(QString statusText READ statusText NOTIFY changed)
    Q_PROPERTY(QString progressText READ progressText NOTIFY changed)
    Q_PROPERTY(QString bottomText READ bottomText NOTIFY changed)
    Q_PROPERTY(double progress READ progress NOTIFY changed)
    Q_PROPERTY(QString percentage READ percentage NOTIFY changed)
    Q_PROPERTY(int stage READ stage NOTIFY changed)
    Q_PROPERTY(QString processedText READ processedText NOTIFY changed)
    Q_PROPERTY(QString speedText READ speedText NOTIFY changed)
    Q_PROPERTY(bool hasRun READ hasRun NOTIFY changed)
    Q_PROPERTY(bool hasResults READ hasResults NOTIFY changed)
    Q_PROPERTY(QStringList cardLabels READ cardLabels NOTIFY changed)
    Q_PROPERTY(QStringList cardValues READ cardValues NOTIFY changed)
    Q_PROPERTY(QStringList lastRunLabels READ lastRunLabels NOTIFY changed)
    Q_PROPERTY(QStringList lastRunValues READ lastRunValues NOTIFY changed)
    Q_PROPERTY(int images READ images NOTIFY changed)
    Q_PROPERTY(int videos READ videos NOTIFY changed)
    Q_PROPERTY(int others READ others NOTIFY changed)
    Q_PROPERTY(int countedFiles READ countedFiles NOTIFY changed)

public:
    // `state` must outlive this; `events` are of the engine that publishes it.
    RunStatus(const PublishedState& state, const EngineEvents& events, QObject* parent = nullptr);

    [[nodiscard]] bool isRunning() const { return state_.isRunning; }
    [[nodiscard]] QString statusText() const;

    // The line above the progress bar: the status, or that nothing is under way.
    [[nodiscard]] QString progressText() const;

    // The line at the bottom of the window.
    [[nodiscard]] QString bottomText() const;

    // From 0 to 1.
    [[nodiscard]] double progress() const { return state_.progress; }
    [[nodiscard]] QString percentage() const;

    // Which cell of the pipeline is lit, from 1 on; 0 for none.
    [[nodiscard]] int stage() const;

    // "1.2 GB", once there is something to tell; else empty. The speed has "/s" behind it.
    [[nodiscard]] QString processedText() const;
    [[nodiscard]] QString speedText() const;

    // Whether a run or an undo began since the start of the program.
    [[nodiscard]] bool hasRun() const { return hasRun_; }

    // Whether the last run found any file, so that there is something to tell of it.
    [[nodiscard]] bool hasResults() const { return state_.totalFilesScanned > 0 || !state_.previewRows.empty(); }

    [[nodiscard]] QStringList cardLabels() const;
    [[nodiscard]] QStringList cardValues() const;
    [[nodiscard]] QStringList lastRunLabels() const;
    [[nodiscard]] QStringList lastRunValues() const;

    // Of the files that the scan kept.
    [[nodiscard]] int images() const { return state_.mediaBreakdown.images; }
    [[nodiscard]] int videos() const { return state_.mediaBreakdown.videos; }
    [[nodiscard]] int others() const { return state_.mediaBreakdown.other; }
    [[nodiscard]] int countedFiles() const { return images() + videos() + others(); }

    // What the cards compare with; nothing while none is known.
    void setEstimate(std::optional<RunEstimate> estimate);

signals:
    void changed();

private:
    void note(PublishedField field);
    void countRows(int count);

    const PublishedState& state_;
    std::optional<RunEstimate> estimate_;
    bool hasRun_ = false;
    std::size_t skipped_ = 0;  // rows of the plan
};

}  // namespace vellomar

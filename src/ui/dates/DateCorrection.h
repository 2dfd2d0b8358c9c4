#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QVariantList>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "engine/OrganizerEngine.h"
#include "platform/FileSystem.h"
#include "settings/SourceList.h"
#include "tools/ShiftableFiles.h"
#include "ui/dates/DateShiftRun.h"
#include "ui/desktop/BackgroundWork.h"
#include "ui/desktop/FileChooser.h"
#include "ui/main/EngineEvents.h"

namespace vellomar {

// What the sheet of the date correction shows and does: whose dates are shifted and by how much, how many files that
// concerns, and the shift itself. A shift goes on when the sheet is closed. Interface thread only; files are counted
// elsewhere.
class DateCorrection final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY openChanged)
    Q_PROPERTY(QVariantList folders READ folders NOTIFY foldersChanged)
    Q_PROPERTY(QString moreText READ moreText NOTIFY foldersChanged)
    Q_PROPERTY(QString customPath READ customPath NOTIFY foldersChanged)
    Q_PROPERTY(QString pathProblem READ pathProblem NOTIFY foldersChanged)
    Q_PROPERTY(QString countText READ countText NOTIFY countChanged)
    Q_PROPERTY(int days READ days WRITE setDays NOTIFY amountChanged)
    Q_PROPERTY(int hours READ hours WRITE setHours NOTIFY amountChanged)
    Q_PROPERTY(QString totalShift READ totalShift NOTIFY amountChanged)
    Q_PROPERTY(QVariantList quickHours READ quickHours CONSTANT)
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY shiftChanged)
    Q_PROPERTY(bool isDone READ isDone NOTIFY shiftChanged)
    Q_PROPERTY(double progress READ progress NOTIFY shiftChanged)
    Q_PROPERTY(QString statusText READ statusText NOTIFY shiftChanged)
    Q_PROPERTY(bool canApply READ canApply NOTIFY shiftChanged)
    Q_PROPERTY(QString hindrance READ hindrance NOTIFY shiftChanged)

public:
    // What it works with; all of it must outlive it.
    struct Surroundings {
        const SourceList& sources;
        const OrganizerEngine& engine;
        const EngineEvents& events;
        DateShiftRun& shift;
        FileSystem& fileSystem;
        FileChooser& chooser;
        BackgroundWork& background;
    };

    explicit DateCorrection(const Surroundings& surroundings, QObject* parent = nullptr);
    ~DateCorrection() override;
    DateCorrection(const DateCorrection&) = delete;
    DateCorrection& operator=(const DateCorrection&) = delete;

    [[nodiscard]] bool isOpen() const { return isOpen_; }

    // A fresh sheet; but while a shift is under way, or when one has ended behind a closed sheet, that one.
    Q_INVOKABLE void open();
    // What is under way goes on.
    Q_INVOKABLE void close();

    // The folders that will be written to: the one that was entered, or else the sources. During a shift those with
    // which it began.
    [[nodiscard]] std::vector<std::string> targetFolders() const;

    // The same as far as they are shown: each is a map of "path" and "problem", which is empty for a folder that can be
    // listed, and for the one that was entered, which has pathProblem(). Few of them at first; then the text tells how
    // many more there are, and is empty when all are shown.
    [[nodiscard]] QVariantList folders() const;
    [[nodiscard]] QString moreText() const;
    Q_INVOKABLE void showAllFolders();

    // What was entered instead of the sources; empty for nothing. Its problem, in words, is empty while there is none.
    [[nodiscard]] QString customPath() const { return shownCustomPath_; }
    [[nodiscard]] QString pathProblem() const;
    Q_INVOKABLE void typePath(const QString& path);
    Q_INVOKABLE void pickFolder();
    // The first of what was dropped that lies on this machine.
    Q_INVOKABLE void dropFolders(const QList<QUrl>& addresses);

    // "17 images found", once they are counted.
    [[nodiscard]] QString countText() const;
    // Files found; nothing while they are being counted.
    [[nodiscard]] std::optional<std::size_t> fileCount() const;

    // Kept within what can be typed, four digits.
    [[nodiscard]] int days() const { return amount_.days; }
    [[nodiscard]] int hours() const { return amount_.hours; }
    void setDays(int days);
    void setHours(int hours);
    [[nodiscard]] QString totalShift() const;

    // Hours by which clocks are often wrong, those between time zones: each a map of "label" and "hours".
    [[nodiscard]] static QVariantList quickHours();

    [[nodiscard]] bool isRunning() const { return surroundings_.shift.isRunning(); }
    // Whether there is an outcome to show, which then is the status.
    [[nodiscard]] bool isDone() const { return !isRunning() && showsOutcome_; }
    [[nodiscard]] double progress() const { return surroundings_.shift.state().progress; }
    [[nodiscard]] QString statusText() const;

    // Whether nothing is under way that works on files; and what a shift has to wait for, in words, if it has to.
    [[nodiscard]] bool canApply() const;
    [[nodiscard]] QString hindrance() const;
    Q_INVOKABLE void applyShift();

    // What is to be told while the sheet is closed: that a shift is under way, or what it came to. Else empty.
    [[nodiscard]] QString notice() const;

    // To be called when the list of sources has changed.
    void noteSources() { noteFolders(); }

signals:
    void openChanged();
    void foldersChanged();
    void countChanged();
    void amountChanged();
    void shiftChanged();
    void noticeChanged();

private:
    void reset();
    void takePath(std::string path, const QString& shown);
    void takeFolder(const std::vector<std::string>& paths);
    void noteFolders();
    void noteShift();
    void setAmount(const DateShift& amount);
    [[nodiscard]] bool isEngineBusy() const;
    [[nodiscard]] QString problemOf(const std::string& folder) const;

    // Counts the files of the folders as they are now. One count is under way at a time: one that is out of date is
    // asked to stop, and the next begins behind it.
    void countFiles();
    void startCount();
    void noteCount(ShiftableCount count);

    Surroundings surroundings_;
    bool isOpen_ = false;
    bool showsAllFolders_ = false;
    bool showsOutcome_ = false;
    bool isOutcomeUnseen_ = false;
    std::vector<std::string> shiftedFolders_;  // of the last shift
    std::string customPath_;
    QString shownCustomPath_;
    DateShift amount_;
    std::optional<ShiftableCount> count_;  // of the folders as they are now
    bool isCounting_ = false;              // them or others
    std::stop_source counting_;
};

}  // namespace vellomar

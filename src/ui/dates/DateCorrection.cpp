#include "ui/dates/DateCorrection.h"

#include <QGuiApplication>
#include <QPointer>
#include <QVariantMap>
#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include "ui/components/TextFormatters.h"
#include "ui/desktop/FileUri.h"

namespace vellomar {
namespace {

constexpr std::size_t kFoldersAtFirst = 3;
constexpr int kMost = 9999;
constexpr std::array kQuickHours = {-12, -8, -6, -5, -3, -1, 1, 3, 5, 6, 8, 9, 12};

}  // namespace

DateCorrection::DateCorrection(const Surroundings& surroundings, QObject* parent)
    : QObject(parent), surroundings_(surroundings) {
    connect(&surroundings_.shift, &DateShiftRun::changed, this, &DateCorrection::noteShift);
    connect(&surroundings_.events, &EngineEvents::changed, this, [this](PublishedField field) {
        if (field == PublishedField::isRunning) emit shiftChanged();
    });
}

DateCorrection::~DateCorrection() {
    counting_.request_stop();
}

void DateCorrection::open() {
    if (isOpen_) return;
    if (!isRunning() && !std::exchange(isOutcomeUnseen_, false)) reset();
    isOpen_ = true;
    emit openChanged();
    emit shiftChanged();
    emit noticeChanged();
    noteFolders();
}

void DateCorrection::close() {
    if (!isOpen_) return;
    isOpen_ = false;
    counting_.request_stop();
    emit openChanged();
    emit noticeChanged();
}

void DateCorrection::reset() {
    showsAllFolders_ = false;
    showsOutcome_ = false;
    customPath_.clear();
    shownCustomPath_.clear();
    setAmount({});
}

std::vector<std::string> DateCorrection::targetFolders() const {
    if (isRunning()) return shiftedFolders_;
    if (!customPath_.empty()) return {customPath_};
    return surroundings_.sources.paths();
}

QVariantList DateCorrection::folders() const {
    auto shown = targetFolders();
    if (!showsAllFolders_ && shown.size() > kFoldersAtFirst) shown.resize(kFoldersAtFirst);
    QVariantList rows;
    for (const auto& folder : shown)
        rows << QVariantMap{{QStringLiteral("path"), displayText(folder)},
                            {QStringLiteral("problem"), customPath_.empty() ? problemOf(folder) : QString()}};
    return rows;
}

QString DateCorrection::moreText() const {
    const auto count = targetFolders().size();
    if (showsAllFolders_ || count <= kFoldersAtFirst) return {};
    return tr("+ %1 more…").arg(count - kFoldersAtFirst);
}

void DateCorrection::showAllFolders() {
    showsAllFolders_ = true;
    emit foldersChanged();
}

QString DateCorrection::pathProblem() const {
    return customPath_.empty() ? QString() : problemOf(customPath_);
}

void DateCorrection::typePath(const QString& path) {
    takePath(path.toStdString(), path);
}

void DateCorrection::pickFolder() {
    surroundings_.chooser.chooseFolder(tr("Select Folder"), QGuiApplication::focusWindow(),
                                       [this](const std::vector<std::string>& paths) { takeFolder(paths); });
}

void DateCorrection::dropFolders(const QList<QUrl>& addresses) {
    takeFolder(pathsOfFileUrls(addresses));
}

void DateCorrection::takeFolder(const std::vector<std::string>& paths) {
    if (!paths.empty()) takePath(paths.front(), displayText(paths.front()));
}

void DateCorrection::takePath(std::string path, const QString& shown) {
    if (isRunning()) return;
    customPath_ = std::move(path);
    shownCustomPath_ = shown;
    noteFolders();
}

QString DateCorrection::countText() const {
    const auto count = fileCount();
    if (!count) return tr("Counting…");
    return count == 1U ? tr("1 image found") : tr("%1 images found").arg(*count);
}

std::optional<std::size_t> DateCorrection::fileCount() const {
    return count_ ? std::optional(count_->files) : std::nullopt;
}

void DateCorrection::setDays(int days) {
    setAmount({std::clamp(days, -kMost, kMost), amount_.hours});
}

void DateCorrection::setHours(int hours) {
    setAmount({amount_.days, std::clamp(hours, -kMost, kMost)});
}

void DateCorrection::setAmount(const DateShift& amount) {
    amount_ = amount;
    emit amountChanged();
}

QString DateCorrection::totalShift() const {
    return QString::fromStdString(shiftDescription(amount_));
}

QVariantList DateCorrection::quickHours() {
    QVariantList rows;
    for (const int hours : kQuickHours)
        rows << QVariantMap{{QStringLiteral("label"), (hours > 0 ? "+" : "") + QString::number(hours)},
                            {QStringLiteral("hours"), hours}};
    return rows;
}

QString DateCorrection::statusText() const {
    return displayText(surroundings_.shift.state().statusText);
}

bool DateCorrection::isEngineBusy() const {
    return surroundings_.engine.state().isRunning;
}

bool DateCorrection::canApply() const {
    return !isRunning() && !isEngineBusy();
}

QString DateCorrection::hindrance() const {
    if (!isEngineBusy()) return {};
    return tr("A run or an undo is under way. Dates can be shifted when it has ended.");
}

void DateCorrection::applyShift() {
    // A run that was just asked for tells only later that it runs.
    if (!canApply() || surroundings_.engine.hasTask()) return;
    shiftedFolders_ = targetFolders();
    showsOutcome_ = true;
    surroundings_.shift.applyShift(shiftedFolders_, amount_);
}

QString DateCorrection::notice() const {
    if (isOpen_) return {};
    if (isRunning()) return tr("Dates are being shifted. Runs and undos have to wait until that has ended.");
    return isOutcomeUnseen_ ? statusText() : QString();
}

void DateCorrection::noteShift() {
    const bool endedUnseen = !isRunning() && !isOpen_;
    if (endedUnseen) isOutcomeUnseen_ = true;
    emit shiftChanged();
    if (endedUnseen) emit noticeChanged();
    // The sources may have changed behind the closed sheet.
    if (!isRunning() && targetFolders() != shiftedFolders_) noteFolders();
}

void DateCorrection::noteFolders() {
    count_.reset();
    emit foldersChanged();
    emit countChanged();
    if (isOpen_) countFiles();
}

void DateCorrection::countFiles() {
    counting_.request_stop();
    if (!isCounting_) startCount();
}

void DateCorrection::startCount() {
    isCounting_ = true;
    counting_ = std::stop_source();
    surroundings_.background.run(
        [&fileSystem = surroundings_.fileSystem, folders = targetFolders(), stop = counting_.get_token()] {
            return countShiftableFiles(fileSystem, folders, stop);
        },
        [self = QPointer(this)](ShiftableCount count) {
            if (self) self->noteCount(std::move(count));
        });
}

void DateCorrection::noteCount(ShiftableCount count) {
    isCounting_ = false;
    if (!isOpen_) return;
    if (counting_.stop_requested()) {
        startCount();
        return;
    }
    count_ = std::move(count);
    emit foldersChanged();
    emit countChanged();
}

QString DateCorrection::problemOf(const std::string& folder) const {
    if (!count_) return {};
    const auto refused = count_->refused.find(folder);
    if (refused == count_->refused.end()) return {};
    const auto& why = refused->second;
    if (isSystemError(why, EINVAL)) return tr("Enter the whole path of a folder, which begins with “/”.");
    if (isSystemError(why, ENOENT)) return tr("There is no such folder.");
    if (isSystemError(why, ENOTDIR)) return tr("This is not a folder.");
    return tr("This folder cannot be read.");
}

}  // namespace vellomar

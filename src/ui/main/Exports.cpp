#include "ui/main/Exports.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLocale>
#include <utility>
#include <vector>

#include "engine/PlanFiles.h"
#include "platform/AtomicWrite.h"
#include "platform/LocalTime.h"

namespace vellomar {

Exports::Exports(const Surroundings& surroundings, QObject* parent) : QObject(parent), surroundings_(surroundings) {}

void Exports::copyLog() {
    const auto text = surroundings_.log.allText();
    QGuiApplication::clipboard()->setText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

void Exports::exportLog() {
    surroundings_.chooser.chooseSaveFile(
        tr("Export Log"), QGuiApplication::focusWindow(),
        QString::fromStdString(exportedLogName(surroundings_.clock.now())), {tr("Text"), {QStringLiteral("*.txt")}},
        [this](const std::vector<std::string>& paths) {
            if (paths.empty()) return;
            surroundings_.background.run(
                [&fileSystem = surroundings_.fileSystem, path = paths.front(), text = surroundings_.log.allText()] {
                    // Whoever exports a log sees whether it is there.
                    static_cast<void>(writeAtomically(fileSystem, path, text));
                });
        });
}

void Exports::exportPlan() {
    surroundings_.chooser.chooseSaveFile(
        tr("Export Plan"), QGuiApplication::focusWindow(), QString::fromLatin1(kExportedPlanName),
        {tr("Comma-separated text"), {QStringLiteral("*.csv")}}, [this](const std::vector<std::string>& paths) {
            if (paths.empty()) return;
            surroundings_.background.run(
                [&fileSystem = surroundings_.fileSystem, path = paths.front(), rows = surroundings_.state.previewRows] {
                    writeExportedPlan(fileSystem, rows, path);
                });
        });
}

std::string exportedLogName(Instant now) {
    constexpr int kNoon = 12;
    const auto time = localCivilTime(now);
    const int hour = time.hour % kNoon == 0 ? kNoon : time.hour % kNoon;
    return QString::asprintf("vellomar_log_%04d-%s-%02d_%02d-%02d-%s.txt", time.year,
                             qPrintable(QLocale::c().monthName(time.month, QLocale::ShortFormat)), time.day, hour,
                             time.minute, time.hour < kNoon ? "AM" : "PM")
        .toStdString();
}

}  // namespace vellomar

#include "ui/inspector/Inspector.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/Path.h"
#include "ui/components/TextFormatters.h"
#include "ui/inspector/DateExplanation.h"
#include "ui/inspector/MapLinks.h"
#include "ui/thumbnails/ThumbnailAddress.h"

namespace vellomar {
namespace {

constexpr double kHighestScore = 100;
constexpr std::array kCameraKeys = {"Camera Make",   "Camera Model", "Lens",     "Lens Make", "Dimensions",
                                    "Focal Length",  "Aperture",     "Shutter",  "ISO",       "Flash",
                                    "White Balance", "Metering",     "Software", "Artist"};

}  // namespace

Inspector::Inspector(const Surroundings& surroundings, QObject* parent)
    : QObject(parent), surroundings_(surroundings) {}

void Inspector::open(const PlanRow& row) {
    row_ = row;
    decision_ = parsedDecision(row.decision);
    facts_ = {};
    isReading_ = true;
    isOpen_ = true;
    setTab(static_cast<int>(ExifTab::whyDate));
    emit rowChanged();
    emit factsChanged();
    emit openChanged();
    surroundings_.background.run([&reader = surroundings_.facts, path = row.source] { return reader.read(path); },
                                 [this, opening = ++opening_](FileFacts facts) {
                                     if (opening == opening_) take(std::move(facts));
                                 });
}

void Inspector::dismiss() {
    if (!isOpen_) return;
    isOpen_ = false;
    emit openChanged();
}

void Inspector::setTab(int tab) {
    if (tab < 0 || tab > static_cast<int>(ExifTab::location)) return;
    tab_ = static_cast<ExifTab>(tab);
    emit tabChanged();
}

void Inspector::take(FileFacts facts) {
    facts_ = std::move(facts);
    isReading_ = false;
    emit factsChanged();
}

QString Inspector::fileName() const {
    return displayText(lastPathComponent(row_.source));
}

QString Inspector::source() const {
    return displayText(row_.source);
}

QString Inspector::destination() const {
    return displayText(row_.destination);
}

QUrl Inspector::thumbnail() const {
    return thumbnailAddress(row_.source);
}

QString Inspector::chosenDate() const {
    return displayText(decision_.chosenDate);
}

QString Inspector::chosenSource() const {
    return displayText(decision_.chosenSource);
}

QString Inspector::explanation() const {
    return dateExplanation(decision_.chosenSource);
}

QVariantList Inspector::candidates() const {
    QVariantList rows;
    for (const auto& candidate : decision_.candidates)
        rows << QVariantMap{{"source", displayText(candidate.source)},
                            {"date", displayText(candidate.date)},
                            {"score", candidate.score},
                            {"share", std::clamp(candidate.score / kHighestScore, 0.0, 1.0)}};
    return rows;
}

QString Inspector::fileSize() const {
    return facts_.size ? byteCountText(*facts_.size) : QString();
}

QVariantList Inspector::cameraRows() const {
    QVariantList rows;
    for (const auto* const key : kCameraKeys) {
        const auto found = facts_.metadata.constFind(QString::fromLatin1(key));
        if (found != facts_.metadata.cend()) rows << QVariantMap{{"label", tr(key)}, {"value", *found}};
    }
    return rows;
}

bool Inspector::hasGps() const {
    return facts_.metadata.contains(QStringLiteral("GPS Latitude"));
}

QString Inspector::location() const {
    return facts_.location;
}

QString Inspector::latitude() const {
    return facts_.metadata.value(QStringLiteral("GPS Latitude"));
}

QString Inspector::longitude() const {
    return facts_.metadata.value(QStringLiteral("GPS Longitude"));
}

QString Inspector::altitude() const {
    return facts_.metadata.value(QStringLiteral("GPS Altitude"));
}

bool Inspector::canOpenMaps() const {
    return !mapLinks(facts_.metadata).empty();
}

void Inspector::openInMaps() {
    surroundings_.links.openFirst(mapLinks(facts_.metadata));
}

void Inspector::revealSource() {
    surroundings_.reveal.reveal(row_.source);
}

}  // namespace vellomar

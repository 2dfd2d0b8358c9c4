#include "ui/inspector/DecodedFileFacts.h"

#include <QCoreApplication>
#include <utility>

#include "places/CompiledPlaces.h"
#include "places/LocationText.h"
#include "ui/components/TextFormatters.h"
#include "ui/inspector/RichMetadata.h"

namespace vellomar {

DecodedFileFacts::DecodedFileFacts(FileSystem& fileSystem, std::string program)
    : fileSystem_(fileSystem), decoder_(std::move(program)) {}

FileFacts DecodedFileFacts::read(const std::string& path) {
    const std::scoped_lock hold(lock_);
    FileFacts facts;
    if (const auto status = fileSystem_.statusFollowingLinks(path)) facts.size = status->size;
    facts.metadata = readMetadata(path);
    facts.location = locate(facts.metadata);
    if (facts.metadata.contains(QStringLiteral("GPS Latitude")))
        facts.metadata.insert(QStringLiteral("Location"), facts.location);
    return facts;
}

QMap<QString, QString> DecodedFileFacts::readMetadata(const std::string& path) {
    const auto file = fileSystem_.openForReading(path, true);
    if (!file) return {};
    const auto properties = decoder_.readProperties(**file);
    return properties ? richMetadata(*properties) : QMap<QString, QString>();
}

QString DecodedFileFacts::locate(const QMap<QString, QString>& metadata) {
    if (!metadata.contains(QStringLiteral("GPS Latitude")))
        return QCoreApplication::translate("Inspector", "No location found");
    if (!places_) places_ = std::make_unique<PlaceFinder>(compiledPlaces());
    bool hasLongitude = false;
    const double latitude = metadata.value(QStringLiteral("GPS Latitude Raw")).toDouble();
    const double longitude = metadata.value(QStringLiteral("GPS Longitude Raw")).toDouble(&hasLongitude);
    if (!hasLongitude) return QCoreApplication::translate("Inspector", "Could not resolve location");
    return displayText(locationText(*places_, latitude, longitude));
}

}  // namespace vellomar

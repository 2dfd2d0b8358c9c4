#include "ui/inspector/MapLinks.h"

#include <fmt/format.h>

namespace vellomar {

std::vector<std::string> mapLinks(const QMap<QString, QString>& metadata) {
    const auto latitude = metadata.value(QStringLiteral("GPS Latitude Raw"));
    const auto longitude = metadata.value(QStringLiteral("GPS Longitude Raw"));
    bool isLatitude = false;
    bool isLongitude = false;
    static_cast<void>(latitude.toDouble(&isLatitude));
    static_cast<void>(longitude.toDouble(&isLongitude));
    if (!isLatitude || !isLongitude) return {};
    const auto north = latitude.toStdString();
    const auto east = longitude.toStdString();
    return {fmt::format("maps://?ll={},{}&q=Photo+Location", north, east), fmt::format("geo:{},{}", north, east),
            fmt::format("https://www.openstreetmap.org/?mlat={0}&mlon={1}#map=15/{0}/{1}", north, east)};
}

}  // namespace vellomar

#include "ui/inspector/RichMetadata.h"

#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include "ui/components/TextFormatters.h"

namespace vellomar {
namespace {

using Texts = QMap<QString, QString>;

void add(Texts& texts, const char* key, std::string_view value) {
    texts.insert(QString::fromLatin1(key), displayText(value));
}

void addText(Texts& texts, const char* key, const std::optional<std::string>& value) {
    if (value) add(texts, key, *value);
}

template <typename Value>
void addNumber(Texts& texts, const char* key, const char* format, const std::optional<Value>& value) {
    if (value) add(texts, key, fmt::format(fmt::runtime(format), *value));
}

std::string shutterText(double seconds) {
    return seconds >= 1 ? fmt::format("{:.1f} s", seconds) : fmt::format("1/{:.0f} s", std::round(1 / seconds));
}

std::string meteringText(int mode) {
    constexpr std::array<const char*, 7> kModes = {"",           "Average", "Center-weighted", "Spot",
                                                   "Multi-spot", "Pattern", "Partial"};
    if (mode < 1 || mode >= static_cast<int>(kModes.size())) return fmt::format("Unknown ({})", mode);
    return kModes.at(static_cast<std::size_t>(mode));
}

void addCamera(Texts& texts, const CameraProperties& properties) {
    addText(texts, "Camera Make", properties.cameraMake);
    addText(texts, "Camera Model", properties.cameraModel);
    addText(texts, "Lens", properties.lensModel);
    addText(texts, "Lens Make", properties.lensMake);
    addText(texts, "Software", properties.software);
    addText(texts, "Artist", properties.artist);
    if (properties.width && properties.height)
        add(texts, "Dimensions", fmt::format("{} × {} px", *properties.width, *properties.height));
}

void addExposure(Texts& texts, const CameraProperties& properties) {
    addNumber(texts, "Focal Length", "{:.0f} mm", properties.focalLength);
    addNumber(texts, "Aperture", "f/{:.1f}", properties.fNumber);
    addNumber(texts, "Brightness", "{:.2f} EV", properties.brightness);
    if (properties.exposureTime && *properties.exposureTime > 0)
        add(texts, "Shutter", shutterText(*properties.exposureTime));
    if (!properties.isoSpeeds.empty()) add(texts, "ISO", fmt::format("{}", fmt::join(properties.isoSpeeds, ", ")));
    if (properties.flash) add(texts, "Flash", *properties.flash == 0 ? "No flash" : "Flash fired");
    if (properties.whiteBalance) add(texts, "White Balance", *properties.whiteBalance == 0 ? "Auto" : "Manual");
    if (properties.meteringMode) add(texts, "Metering", meteringText(*properties.meteringMode));
}

void addCoordinate(Texts& texts, const char* key, const char* rawKey, std::optional<double> degrees,
                   const std::optional<std::string>& reference) {
    if (!degrees || !reference) return;
    const bool isNegative = *reference == "S" || *reference == "W";
    add(texts, key, fmt::format("{:.6f}° {}", *degrees, *reference));
    add(texts, rawKey, fmt::format("{}", isNegative ? -*degrees : *degrees));
}

void addPlace(Texts& texts, const CameraProperties& properties) {
    addCoordinate(texts, "GPS Latitude", "GPS Latitude Raw", properties.latitude, properties.latitudeRef);
    addCoordinate(texts, "GPS Longitude", "GPS Longitude Raw", properties.longitude, properties.longitudeRef);
    addNumber(texts, "GPS Altitude", "{:.0f} m", properties.altitude);
}

}  // namespace

Texts richMetadata(const CameraProperties& properties) {
    Texts texts;
    addCamera(texts, properties);
    addExposure(texts, properties);
    addPlace(texts, properties);
    return texts;
}

}  // namespace vellomar

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vellomar {

// What a camera recorded of an image, as it stands in the file: no number is interpreted. A property that is missing,
// or is not of the type that it should have, is absent; so is a fraction whose denominator is 0, and an empty text.
// Texts are UTF-8, without padding.
struct CameraProperties {
    std::optional<std::string> cameraMake;    // TIFF
    std::optional<std::string> cameraModel;   // TIFF
    std::optional<std::string> software;      // TIFF
    std::optional<std::string> artist;        // TIFF
    std::optional<std::string> lensMake;      // EXIF
    std::optional<std::string> lensModel;     // EXIF
    std::optional<int> width;                 // in pixels, as the picture is stored, whichever way the camera was held
    std::optional<int> height;                // likewise
    std::optional<double> focalLength;        // in mm
    std::optional<double> fNumber;            // as in f/2.8
    std::optional<double> exposureTime;       // in seconds
    std::vector<int> isoSpeeds;               // all that are given; empty when absent
    std::optional<int> flash;                 // EXIF's bits
    std::optional<double> brightness;         // in EV
    std::optional<int> whiteBalance;          // EXIF's number
    std::optional<int> meteringMode;          // EXIF's number
    std::optional<double> latitude;           // in degrees; may lie beyond a pole
    std::optional<std::string> latitudeRef;   // "N" or "S"
    std::optional<double> longitude;          // in degrees; may lie beyond the antimeridian
    std::optional<std::string> longitudeRef;  // "E" or "W"
    std::optional<double> altitude;           // in m, above or below the sea

    bool operator==(const CameraProperties&) const = default;
};

}  // namespace vellomar

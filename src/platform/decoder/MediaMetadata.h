// What media files say about themselves, as far as dates and cameras go. Texts stand here as they stood in the file,
// less the padding behind them; nothing is interpreted.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vellomar {

// Of an image. A property that is missing, or is no text, is absent.
struct ImageProperties {
    std::optional<std::string> dateTimeOriginal;   // EXIF, when the shutter was released
    std::optional<std::string> dateTimeDigitized;  // EXIF, when the picture became numbers
    std::optional<std::string> dateTime;           // TIFF, when the file was last changed
    std::optional<std::string> make;               // TIFF, of the camera
    std::optional<std::string> model;              // TIFF, likewise

    bool operator==(const ImageProperties&) const = default;
};

// All texts that a video holds in one of the forms in which a container can hold them.
struct VideoMetadataFormat {
    std::string identifier;          // the form's name, as the media library has it
    std::vector<std::string> texts;  // values of its items, in the order of the file

    bool operator==(const VideoMetadataFormat&) const = default;
};

// Of a video.
struct VideoMetadata {
    std::optional<std::string> creationDate;  // the item that means just that, whatever the container calls it
    std::vector<VideoMetadataFormat> formats;

    bool operator==(const VideoMetadata&) const = default;
};

// What is looked for in a file. A file with the name of a video may hold an image, so that is looked for as well.
enum class MediaKind { image, video };

struct MediaMetadata {
    ImageProperties image;
    VideoMetadata video;  // empty for MediaKind::image

    bool operator==(const MediaMetadata&) const = default;
};

}  // namespace vellomar

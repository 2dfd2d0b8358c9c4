#include "platform/decoder/worker/OpenImage.h"

#include <exception>

namespace vellomar {
namespace {

// A RAW file whose end is missing still tells when it was shot.
void readAsFarAsPossible(Exiv2::Image& image) {
    try {
        image.readMetadata();
    } catch (const std::exception&) {
        return;
    }
}

}  // namespace

void prepareImageLibrary() {
    Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
    Exiv2::XmpParser::initialize();
    Exiv2::enableBMFF(true);
}

std::unique_ptr<Exiv2::Image> openImage(std::span<const std::byte> file) {
    const auto* bytes = reinterpret_cast<const Exiv2::byte*>(file.data());
    // The library's own kind of pointer, which only this one call brings.
    std::unique_ptr<Exiv2::Image> image(Exiv2::ImageFactory::open(bytes, static_cast<long>(file.size())).release());
    if (image) readAsFarAsPossible(*image);
    return image;
}

}  // namespace vellomar

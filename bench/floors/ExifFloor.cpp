// Reads the EXIF date of every file named in a list, in this process and with the library's own file access.
//
//   floor_exif LIST     a file with one path a line
#include <cstdio>
#include <string>

#include <exiv2/exiv2.hpp>

#include "measure/Measurement.h"
#include "measure/PathList.h"

namespace {

std::uint64_t sizeOfDate(const std::string& path) {
    const auto image = Exiv2::ImageFactory::open(path);
    image->readMetadata();
    const auto& data = image->exifData();
    const auto date = data.findKey(Exiv2::ExifKey("Exif.Photo.DateTimeOriginal"));
    return date == data.end() ? 0 : date->toString().size();
}

}  // namespace

int main(int argc, char** argv) {
    using namespace vellomar::bench;
    if (argc != 2) {
        std::fputs("Usage: floor_exif LIST\n", stderr);
        return 2;
    }
    Exiv2::XmpParser::initialize();
    const auto paths = pathsIn(argv[1]);
    printMeasurementOf([&] {
        Amount sum;
        for (const auto& path : paths) {
            ++sum.files;
            sum.bytes += sizeOfDate(path);
        }
        return sum;
    });
}

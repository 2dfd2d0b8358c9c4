#include "run/Corpus.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string_view>

#include <fmt/chrono.h>
#include <fmt/format.h>

#include "run/Interruption.h"

namespace vellomar::bench {
namespace fs = std::filesystem;

namespace {

constexpr std::size_t kFilesInAFolder = 100;

// When the n-th photo of a library was shot: a hundred on a day, from 2001 on, folder by folder.
std::tm shotAt(std::size_t number) {
    constexpr std::time_t kFirst = 978'350'400;  // 2001-01-01T12:00:00Z
    constexpr std::time_t kDay = 86'400;
    constexpr std::size_t kDaysInUse = 8'000;
    constexpr std::size_t kSecondsBetween = 61;
    const auto day = static_cast<std::time_t>(number / kFilesInAFolder % kDaysInUse);
    const auto second = static_cast<std::time_t>(number % kFilesInAFolder * kSecondsBetween);
    return fmt::gmtime(kFirst + day * kDay + second);
}

std::string folderName(std::size_t number) {
    constexpr std::array kEvents = {"Vacation in Rome", "2014-08 Summer", "Anna's Birthday", "DCIM/100CANON",
                                    "Aug 2019",         "Hike 85",        "Familie/Ostern",  "Enero"};
    const auto shot = shotAt(number * kFilesInAFolder);
    return fmt::format("{:%Y}/{} {}", shot, kEvents[number % kEvents.size()], number);
}

std::string photoName(std::size_t number) {
    return fmt::format("{:%Y%m%d_%H%M%S}_{:05}.jpg", shotAt(number), number);
}

// Every name holds its number, so that no two files of a library want one destination.
std::string libraryName(std::size_t number) {
    constexpr std::size_t kShapes = 10;
    const auto shot = shotAt(number);
    switch (number % kShapes) {
        case 5: return fmt::format("IMG_{:%Y%m%d_%H%M%S}_{:05}.JPG", shot, number);
        case 6: return fmt::format("{:%Y-%m-%d %H.%M.%S} {:05}.heic", shot, number);
        case 7: return fmt::format("VID_{:%Y%m%d_%H%M%S}_{:05}.mp4", shot, number);
        case 8: return fmt::format("IMG-{:%Y%m%d}-WA{:06}.jpg", shot, number);
        case 9: return fmt::format("DSC_{:06}.NEF", number);
        default: return photoName(number);
    }
}

std::string makeFolder(const std::string& parent, const std::string& name) {
    auto path = fmt::format("{}/{}", parent, name);
    fs::create_directories(path);
    return path;
}

void write(const std::string& path, std::string_view content) {
    stopIfInterrupted();
    std::ofstream file(path, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    if (!file) throw std::runtime_error("cannot write " + path);
}

// Noise of any length, the same for one seed.
class Noise {
public:
    explicit Noise(std::uint64_t seed) : random_(seed) {}

    [[nodiscard]] const std::string& ofSize(std::size_t size) {
        buffer_.resize((size + sizeof(std::uint64_t) - 1) / sizeof(std::uint64_t) * sizeof(std::uint64_t));
        for (std::size_t at = 0; at < buffer_.size(); at += sizeof(std::uint64_t)) {
            const std::uint64_t word = random_();
            buffer_.replace(at, sizeof word, reinterpret_cast<const char*>(&word), sizeof word);
        }
        buffer_.resize(size);
        return buffer_;
    }

private:
    std::mt19937_64 random_;
    std::string buffer_;
};

void runShell(const std::string& command) {
    if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The content of a photo with some thirty tags, an embedded preview among them, as cameras write them.
std::string taggedPhoto(const std::string& folder) {
    const auto path = folder + "/seed.jpg";
    const auto preview = folder + "/preview.jpg";
    runShell(fmt::format("convert -size 160x120 plasma:red-blue '{}'", preview));
    runShell(fmt::format("convert -size 640x480 plasma:red-blue '{}'", path));
    runShell(fmt::format(
        "exiftool -q -overwrite_original -Make=Canon '-Model=Canon EOS R5' '-DateTimeOriginal=2023:08:14 14:30:21' "
        "'-CreateDate=2023:08:14 14:30:21' '-ModifyDate=2023:08:14 14:30:21' -Orientation#=1 -XResolution=72 "
        "-YResolution=72 -ResolutionUnit#=2 -Artist=Nobody -Copyright=Nobody -ExposureTime=1/250 -FNumber=4 "
        "-ExposureProgram#=2 -ISO=400 -SubSecTimeOriginal=12 -OffsetTimeOriginal=+02:00 -ShutterSpeedValue=1/250 "
        "-ApertureValue=4 -ExposureCompensation=0 -MeteringMode#=5 -Flash#=16 -FocalLength=50 -ColorSpace#=1 "
        "-ExifImageWidth=640 -ExifImageHeight=480 -WhiteBalance#=0 -SerialNumber=0123456789 "
        "'-LensModel=RF50mm F1.2 L USM' -GPSLatitude=41.9 -GPSLatitudeRef=N -GPSLongitude=12.5 -GPSLongitudeRef=E "
        "-XMP-xmp:Rating=3 '-ThumbnailImage<={}' '{}'",
        preview, path));
    auto content = contentOf(path);
    fs::remove(path);
    fs::remove(preview);
    return content;
}

}  // namespace

void makeLibrary(const std::string& folder, std::size_t fileCount) {
    std::string parent;
    for (std::size_t number = 0; number < fileCount; ++number) {
        if (number % kFilesInAFolder == 0) parent = makeFolder(folder, folderName(number / kFilesInAFolder));
        write(fmt::format("{}/{}", parent, libraryName(number)), "");
    }
}

std::vector<std::string> makePhotos(const std::string& folder, std::size_t fileCount, std::uint64_t fileSize,
                                    std::size_t filesInAFolder) {
    Noise noise(1);
    std::vector<std::string> paths;
    std::string parent;
    for (std::size_t number = 0; number < fileCount; ++number) {
        if (number % filesInAFolder == 0) parent = makeFolder(folder, folderName(number / filesInAFolder));
        paths.push_back(fmt::format("{}/{}", parent, photoName(number)));
        write(paths.back(), noise.ofSize(fileSize));
    }
    return paths;
}

void makePhotosWithDuplicates(const std::string& folder, std::size_t fileCount) {
    constexpr std::size_t kOneCopyIn = 20;
    constexpr std::size_t kSmallest = 1'000'000;
    constexpr std::size_t kLargest = 3'000'000;
    const std::size_t step = (kLargest - kSmallest) / fileCount;
    Noise noise(2);
    std::string parent;
    std::string last;
    for (std::size_t number = 0; number < fileCount; ++number) {
        if (number % kFilesInAFolder == 0) parent = makeFolder(folder, folderName(number / kFilesInAFolder));
        const bool isCopy = number % kOneCopyIn == kOneCopyIn - 1;
        if (!isCopy) last = noise.ofSize(kSmallest + number * step);
        write(fmt::format("{}/{}", parent, photoName(number)), last);
    }
}

std::vector<std::string> makeTaggedPhotos(const std::string& folder, std::size_t fileCount) {
    const auto photo = taggedPhoto(folder);
    std::vector<std::string> paths;
    std::string parent;
    for (std::size_t number = 0; number < fileCount; ++number) {
        if (number % kFilesInAFolder == 0) parent = makeFolder(folder, folderName(number / kFilesInAFolder));
        paths.push_back(fmt::format("{}/{}", parent, photoName(number)));
        write(paths.back(), photo);
    }
    return paths;
}

std::vector<std::string> makePictures(const std::string& folder, std::size_t fileCount) {
    std::vector<std::string> paths;
    for (std::size_t number = 0; number < fileCount; ++number)
        paths.push_back(fmt::format("{}/{}", folder, photoName(number)));
    // Clouds with a grain, which takes about as many bytes as a photo.
    runShell(
        fmt::format("convert -seed 5 -size 6000x4000 plasma:white-blue -attenuate 0.1 +noise Gaussian "
                    "-sampling-factor 2x2 -quality 92 '{}'",
                    paths.front()));
    for (std::size_t number = 1; number < fileCount; ++number)
        fs::copy_file(paths.front(), paths[number]);
    return paths;
}

void makeFile(const std::string& path, std::uint64_t size) {
    constexpr std::uint64_t kPiece = 1024 * 1024;
    Noise noise(3);
    std::ofstream file(path, std::ios::binary);
    for (std::uint64_t left = size; left > 0 && file;) {
        stopIfInterrupted();
        const auto& piece = noise.ofSize(std::min(left, kPiece));
        file << piece;
        left -= piece.size();
    }
    file.close();
    if (!file) throw std::runtime_error("cannot write " + path);
}

}  // namespace vellomar::bench

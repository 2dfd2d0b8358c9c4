// Decodes the luma of every JPEG picture named in a list at its full size, and reduces it to 9 by 8 grey pixels.
//
//   floor_pixels LIST     a file with one path a line
#include <array>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include <turbojpeg.h>

#include "measure/Measurement.h"
#include "measure/PathList.h"

namespace {

constexpr int kColumns = 9;
constexpr int kRows = 8;

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<unsigned char> pixels;
};

void readWhole(const std::string& path, std::string& content) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    content.resize(static_cast<std::size_t>(file.tellg()));
    file.seekg(0);
    file.read(content.data(), static_cast<std::streamsize>(content.size()));
}

// Into the memory of the picture before it.
void decode(tjhandle decompressor, const std::string& content, Picture& picture) {
    const auto* file = reinterpret_cast<const unsigned char*>(content.data());
    int subsampling = 0;
    int colours = 0;
    tjDecompressHeader3(decompressor, file, content.size(), &picture.width, &picture.height, &subsampling, &colours);
    picture.pixels.resize(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
    tjDecompress2(decompressor, file, content.size(), picture.pixels.data(), picture.width, picture.width,
                  picture.height, TJPF_GRAY, TJFLAG_ACCURATEDCT);
}

// Each pixel counts to the one that its corner lies on.
std::uint64_t reduce(const Picture& picture) {
    std::array<std::uint64_t, std::size_t{kColumns} * kRows> sums{};
    const auto* pixel = picture.pixels.data();
    for (int y = 0; y < picture.height; ++y) {
        auto* row = &sums[static_cast<std::size_t>(y * kRows / picture.height) * kColumns];
        for (int column = 0; column < kColumns; ++column) {
            std::uint32_t sum = 0;
            const auto* end = picture.pixels.data() + static_cast<std::ptrdiff_t>(y) * picture.width +
                              static_cast<std::ptrdiff_t>((column + 1) * picture.width / kColumns);
            while (pixel < end)
                sum += *pixel++;
            row[column] += sum;
        }
    }
    std::uint64_t falls = 0;
    for (std::size_t i = 1; i < sums.size(); ++i)
        falls += static_cast<std::uint64_t>(sums[i - 1] > sums[i]);
    return falls;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace vellomar::bench;
    if (argc != 2) {
        std::fputs("Usage: floor_pixels LIST\n", stderr);
        return 2;
    }
    const auto paths = pathsIn(argv[1]);
    const auto decompressor = tjInitDecompress();
    std::uint64_t falls = 0;
    std::string content;
    Picture picture;
    printMeasurementOf([&] {
        Amount sum;
        for (const auto& path : paths) {
            ++sum.files;
            readWhole(path, content);
            decode(decompressor, content, picture);
            falls += reduce(picture);
        }
        return sum;
    });
    tjDestroy(decompressor);
    return falls > 0 ? 0 : 1;
}

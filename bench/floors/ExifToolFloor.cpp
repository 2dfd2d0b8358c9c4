// Starts ExifTool for 200 files at a time, with the arguments that a run gives it for images, and drops what it says.
//
//   floor_exiftool LIST     a file with one path a line
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "measure/Measurement.h"
#include "measure/PathList.h"

namespace {

constexpr std::size_t kFilesAtATime = 200;

std::vector<std::string> wordsBeforeFiles() {
    return {"/usr/bin/exiftool",
            "-api",
            "LargeFileSupport=1",
            "-json",
            "-DateTimeOriginal",
            "-CreateDate",
            "-DateTimeDigitized",
            "-EXIF:DateTimeOriginal",
            "-EXIF:CreateDate",
            "-Sony:DateTimeOriginal",
            "-Canon:DateTimeOriginal",
            "-Nikon:DateTimeOriginal",
            "-Panasonic:DateTimeOriginal",
            "-XMP:CreateDate",
            "-XMP:DateCreated",
            "-FileModifyDate",
            "-d",
            "%Y:%m:%d %H:%M:%S",
            "-Make",
            "-Model"};
}

bool runQuietly(std::vector<std::string> words) {
    std::vector<char*> arguments;
    for (auto& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const auto child = ::fork();
    if (child == 0) {
        const int nowhere = ::open("/dev/null", O_RDWR);
        ::dup2(nowhere, STDOUT_FILENO);
        ::dup2(nowhere, STDERR_FILENO);
        ::execv(arguments.front(), arguments.data());
        ::_exit(127);
    }
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace vellomar::bench;
    if (argc != 2) {
        std::fputs("Usage: floor_exiftool LIST\n", stderr);
        return 2;
    }
    const auto paths = pathsIn(argv[1]);
    printMeasurementOf([&] {
        Amount sum;
        for (std::size_t start = 0; start < paths.size(); start += kFilesAtATime) {
            auto words = wordsBeforeFiles();
            const auto end = std::min(paths.size(), start + kFilesAtATime);
            words.insert(words.end(), paths.begin() + static_cast<std::ptrdiff_t>(start),
                         paths.begin() + static_cast<std::ptrdiff_t>(end));
            if (runQuietly(std::move(words))) sum.files += end - start;
        }
        return sum;
    });
}

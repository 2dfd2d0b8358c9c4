// Copies files one by one as a careful program must: the bytes on the disk before the final name, the copy read back
// from the disk and compared with its source, which was digested once before for the search for duplicates.
//
//   floor_copy LIST FOLDER     LIST is a file of absolute paths, one a line; FOLDER stands and is empty
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "floors/BareDigest.h"
#include "floors/KernelCall.h"
#include "measure/Measurement.h"

namespace vellomar::bench {
namespace {

std::vector<std::string> linesOf(const char* path) {
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

void copyContent(int source, int target) {
    constexpr std::size_t kLargestStep = 64 * 1024 * 1024;
    if (::ioctl(target, FICLONE, source) == 0) return;
    while (orGiveUp(::copy_file_range(source, nullptr, target, nullptr, kLargestStep, 0), "copy_file_range") > 0) {
    }
}

void copyToPartial(const std::string& source, const std::string& partial) {
    const int in = orGiveUp(::open(source.c_str(), O_RDONLY | O_CLOEXEC), source.c_str());
    const int out = orGiveUp(::open(partial.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600), partial.c_str());
    copyContent(in, out);
    orGiveUp(::fdatasync(out), partial.c_str());
    ::posix_fadvise(out, 0, 0, POSIX_FADV_DONTNEED);
    ::close(in);
    ::close(out);
}

Amount copyAll(const std::vector<std::string>& sources, const std::string& folder) {
    Amount done;
    BareDigest hasher;
    for (const auto& source : sources) {
        const auto target = folder + source.substr(source.rfind('/'));
        const auto partial = target + ".__partial";
        hasher.digest(source.c_str());
        copyToPartial(source, partial);
        orGiveUp(::rename(partial.c_str(), target.c_str()), partial.c_str());
        done.bytes += hasher.digest(target.c_str());
        hasher.digest(source.c_str());
        ++done.files;
    }
    return done;
}

}  // namespace
}  // namespace vellomar::bench

int main(int argc, char** argv) {
    using namespace vellomar::bench;
    if (argc != 3) {
        std::fputs("Usage: floor_copy LIST FOLDER\n", stderr);
        return 2;
    }
    const auto sources = linesOf(argv[1]);
    printMeasurementOf([&] { return copyAll(sources, argv[2]); });
}

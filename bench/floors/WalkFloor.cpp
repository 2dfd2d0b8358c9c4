// Walks a tree with getdents64() and one statx() a file, and counts.
//
//   floor_walk FOLDER
#include <array>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "floors/KernelCall.h"
#include "measure/Measurement.h"

namespace vellomar::bench {
namespace {

class Walk {
public:
    explicit Walk(std::string top) { folders_.push_back(std::move(top)); }

    Amount run() {
        while (!folders_.empty()) {
            const auto path = std::move(folders_.back());
            folders_.pop_back();
            enter(path);
        }
        return found_;
    }

private:
    void enter(const std::string& path) {
        const int folder = orGiveUp(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), path.c_str());
        while (const auto filled = orGiveUp(::getdents64(folder, buffer_.data(), buffer_.size()), path.c_str()))
            for (decltype(+filled) at = 0; at < filled;) {
                const auto* entry = reinterpret_cast<const dirent64*>(buffer_.data() + at);
                at += entry->d_reclen;
                if (entry->d_name[0] != '.') take(path, folder, *entry);
            }
        ::close(folder);
    }

    void take(const std::string& path, int folder, const dirent64& entry) {
        if (entry.d_type == DT_DIR) {
            folders_.push_back(path + "/" + entry.d_name);
            return;
        }
        struct statx status {};
        orGiveUp(::statx(folder, entry.d_name, AT_SYMLINK_NOFOLLOW, STATX_TYPE | STATX_SIZE, &status), entry.d_name);
        ++found_.files;
        found_.bytes += status.stx_size;
    }

    alignas(dirent64) std::array<char, 64 * 1024> buffer_{};
    std::vector<std::string> folders_;
    Amount found_;
};

}  // namespace
}  // namespace vellomar::bench

int main(int argc, char** argv) {
    using namespace vellomar::bench;
    if (argc != 2) {
        std::fputs("Usage: floor_walk FOLDER\n", stderr);
        return 2;
    }
    Walk walk(argv[1]);
    printMeasurementOf([&] { return walk.run(); });
}

#include "platform/WidePipe.h"

#include <array>
#include <cerrno>

#include <fcntl.h>

namespace vellomar {
namespace {

constexpr std::size_t kBytesPerRead = 64 << 10;

void widen(const FileDescriptor& pipe, int capacity) {
    const int present = ::fcntl(pipe.get(), F_GETPIPE_SZ);
    while (capacity > present && ::fcntl(pipe.get(), F_SETPIPE_SZ, capacity) < 0)
        capacity /= 2;
}

}  // namespace

Expected<Pipe> makeWidePipe(int capacity) {
    std::array<int, 2> ends = {-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return systemFailure(errno);
    Pipe pipe{FileDescriptor(ends[0]), FileDescriptor(ends[1])};
    // Of the end that stays here alone: a program expects its output to wait, and would take a full pipe for an error.
    ::fcntl(pipe.readEnd.get(), F_SETFL, O_NONBLOCK);
    widen(pipe.writeEnd, capacity);
    return pipe;
}

std::string readWhatIsThere(const FileDescriptor& readEnd) {
    std::string bytes;
    std::array<char, kBytesPerRead> buffer{};
    while (true) {
        const auto count = ::read(readEnd.get(), buffer.data(), buffer.size());
        if (count > 0)
            bytes.append(buffer.data(), static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            return bytes;
    }
}

}  // namespace vellomar

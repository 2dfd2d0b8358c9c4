#include "platform/watch/LinuxMountWatcher.h"

#include <array>
#include <cerrno>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include "platform/FileDescriptor.h"
#include "platform/Uninterrupted.h"
#include "platform/WakeUpCall.h"

namespace vellomar {
namespace {

std::optional<std::string> wholeTable(int table) {
    std::string text;
    std::array<char, 4096> buffer{};
    while (true) {
        const auto length = uninterrupted(
            [&] { return ::pread(table, buffer.data(), buffer.size(), static_cast<off_t>(text.size())); });
        if (length < 0) return std::nullopt;
        if (length == 0) return text;
        text.append(buffer.data(), static_cast<std::size_t>(length));
    }
}

class TableWatch final : public MountWatch {
public:
    TableWatch(FileDescriptor table, std::vector<Mount> known, WakeUpCall wakeUp, MountWatcher::Deliver deliver)
        : table_(std::move(table)),
          known_(std::move(known)),
          wakeUp_(std::move(wakeUp)),
          deliver_(std::move(deliver)),
          thread_([this](const std::stop_token& stop) { watch(stop); }) {}
    ~TableWatch() override {
        thread_.request_stop();
        wakeUp_.call();
    }
    TableWatch(const TableWatch&) = delete;
    TableWatch& operator=(const TableWatch&) = delete;

private:
    void watch(const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            std::array<pollfd, 2> awaited{{{wakeUp_.descriptor(), POLLIN, 0}, {table_.get(), POLLPRI, 0}}};
            ::poll(awaited.data(), awaited.size(), -1);
            if (!stop.stop_requested()) tellNewMounts();
        }
    }

    void tellNewMounts() {
        const auto text = wholeTable(table_.get());
        if (!text) return;
        auto mounts = mountsIn(*text);
        for (const auto& mount : newMounts(known_, mounts))
            deliver_(mount);
        known_ = std::move(mounts);
    }

    const FileDescriptor table_;
    std::vector<Mount> known_;
    const WakeUpCall wakeUp_;
    const MountWatcher::Deliver deliver_;
    std::jthread thread_;
};

}  // namespace

Expected<std::unique_ptr<MountWatch>> LinuxMountWatcher::watch(Deliver deliver) {
    FileDescriptor table(::open("/proc/thread-self/mountinfo", O_RDONLY | O_CLOEXEC));
    if (!table.isOpen()) return systemFailure(errno);
    const auto known = wholeTable(table.get());
    if (!known) return systemFailure(errno);
    auto wakeUp = WakeUpCall::make();
    if (!wakeUp) return tl::unexpected(wakeUp.error());
    return std::make_unique<TableWatch>(std::move(table), mountsIn(*known), *std::move(wakeUp), std::move(deliver));
}

}  // namespace vellomar

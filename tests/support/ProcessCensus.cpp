#include "support/ProcessCensus.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#include <gtest/gtest.h>
#include <unistd.h>

namespace vellomar::testing {
namespace fs = std::filesystem;

namespace {

struct ProcessStat {
    char state = '?';
    pid_t parent = -1;
};

std::optional<ProcessStat> statOf(const std::string& id) {
    std::ifstream file("/proc/" + id + "/stat");
    std::string line;
    if (!std::getline(file, line)) return std::nullopt;
    // "id (name) state parent ...", where a name may hold anything, brackets and blanks too.
    const auto nameEnd = line.rfind(") ");
    if (nameEnd == std::string::npos) return std::nullopt;
    constexpr std::size_t kToState = 2;
    constexpr std::size_t kToParent = 4;
    return ProcessStat{line.at(nameEnd + kToState), std::stoi(line.substr(nameEnd + kToParent))};
}

bool isNumber(const std::string& name) {
    return std::ranges::all_of(name, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::size_t countOpenDescriptors() {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()));
}

Children childrenOfThisProcess() {
    Children children;
    for (const auto& entry : fs::directory_iterator("/proc")) {
        const auto id = entry.path().filename().string();
        if (!isNumber(id)) continue;
        const auto stat = statOf(id);
        if (!stat || stat->parent != ::getpid()) continue;
        (stat->state == 'Z' ? children.zombies : children.running).push_back(std::stoi(id));
    }
    return children;
}

std::optional<char> stateOfProcess(pid_t id) {
    const auto stat = statOf(std::to_string(id));
    if (!stat) return std::nullopt;
    return stat->state;
}

bool comesTrue(const std::function<bool()>& condition) {
    using namespace std::chrono_literals;
    const auto deadline = std::chrono::steady_clock::now() + 60s;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(5ms);
    }
    return true;
}

LeavesNothingBehind::LeavesNothingBehind() : descriptorsBefore_(countOpenDescriptors()) {}

LeavesNothingBehind::~LeavesNothingBehind() {
    EXPECT_EQ(countOpenDescriptors(), descriptorsBefore_);
    // A process that was sent a signal, or is waited for in the background, may take a moment to go.
    EXPECT_TRUE(comesTrue([] {
        const auto [running, zombies] = childrenOfThisProcess();
        return running.empty() && zombies.empty();
    })) << "a child process is left";
}

}  // namespace vellomar::testing

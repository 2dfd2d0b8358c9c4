// How the measured programs measure themselves. They do so from inside, so that starting a process, loading libraries
// and taking things down afterwards count for neither side of a comparison.
#pragma once

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <limits>
#include <string>

#include <time.h>

namespace vellomar::bench {

// What a job was about, by which both sides of a comparison prove that they did the same.
struct Amount {
    std::uint64_t files = 0;
    std::uint64_t bytes = 0;
};

// CPU time of all threads of this process, in seconds.
inline double processCpuSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// The most memory that this process ever held, in bytes; 0 where the kernel does not tell. Unlike the figure that
// getrusage() gives, it has nothing of the process that started this one.
inline std::uint64_t peakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        std::uint64_t kibibytes = 0;
        if (word == "VmHWM:" && status >> kibibytes) return kibibytes * 1024;
        status.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    }
    return 0;
}

// Does `job`, which returns its Amount, and prints what it took as one line of JSON.
template <typename Job>
void printMeasurementOf(const Job& job) {
    const auto start = std::chrono::steady_clock::now();
    const double cpuStart = processCpuSeconds();
    const Amount amount = job();
    const double cpuSeconds = processCpuSeconds() - cpuStart;
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    std::printf(R"({"seconds":%.9f,"cpuSeconds":%.9f,"files":%llu,"bytes":%llu,"peakMemory":%llu})"
                "\n",
                elapsed.count(), cpuSeconds, static_cast<unsigned long long>(amount.files),
                static_cast<unsigned long long>(amount.bytes), static_cast<unsigned long long>(peakMemory()));
}

}  // namespace vellomar::bench

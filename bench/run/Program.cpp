#include "run/Program.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/BytesJson.h"
#include "platform/FileDescriptor.h"
#include "run/Interruption.h"

namespace vellomar::bench {
namespace {

void succeedOrThrow(int error, const std::string& subject) {
    if (error != 0) throw std::system_error(error, std::generic_category(), subject);
}

struct Pipe {
    FileDescriptor readEnd{-1};
    FileDescriptor writeEnd{-1};
};

Pipe openPipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

pid_t start(const std::string& path, std::vector<std::string> arguments, const FileDescriptor& output) {
    arguments.insert(arguments.begin(), path);
    std::vector<char*> argv;
    for (auto& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions{};
    succeedOrThrow(posix_spawn_file_actions_init(&actions), path);
    posix_spawn_file_actions_adddup2(&actions, output.get(), STDOUT_FILENO);
    pid_t process = 0;
    const int error = posix_spawn(&process, path.c_str(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    succeedOrThrow(error, path);
    return process;
}

std::string readAll(const FileDescriptor& file) {
    std::string text;
    std::array<char, 4096> buffer{};
    while (true) {
        const auto count = ::read(file.get(), buffer.data(), buffer.size());
        if (count == 0 || (count < 0 && errno != EINTR)) return text;
        if (count > 0) text.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

bool endsWell(pid_t process) {
    int status = 0;
    while (::waitpid(process, &status, 0) < 0)
        if (errno != EINTR) return false;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

Measurement measurementFrom(const std::string& text, const std::string& program) {
    const auto json = parseJson(text);
    if (!json) throw std::runtime_error(program + " did not tell its measurement");
    return {.seconds = json->at("seconds"),
            .cpuSeconds = json->at("cpuSeconds"),
            .files = json->at("files"),
            .bytes = json->at("bytes"),
            .peakMemory = json->at("peakMemory")};
}

}  // namespace

Measurement runProgram(const std::string& name, const std::vector<std::string>& arguments) {
    const auto path = std::filesystem::read_symlink("/proc/self/exe").replace_filename(name).string();
    auto [readEnd, writeEnd] = openPipe();
    const auto process = start(path, arguments, writeEnd);
    // With this process's own write end open the answer would never end.
    { const auto closed = std::move(writeEnd); }
    const auto answer = readAll(readEnd);
    const bool isWell = endsWell(process);
    stopIfInterrupted();
    if (!isWell) throw std::runtime_error(name + " failed");
    return measurementFrom(answer, name);
}

}  // namespace vellomar::bench

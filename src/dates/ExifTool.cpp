#include "dates/ExifTool.h"

#include <csignal>
#include <utility>

#include <unistd.h>

#include "platform/ChildProcess.h"
#include "platform/Path.h"
#include "platform/WidePipe.h"

namespace vellomar::ExifUtils {
namespace {

using std::chrono::milliseconds;

constexpr const char* kPerl = "/usr/bin/perl";

// How long a program may take to follow the request to terminate.
constexpr milliseconds kTerminationTime{500};

bool isFile(FileSystem& fileSystem, const std::string& path) {
    const auto status = fileSystem.statusFollowingLinks(path);
    return status && status->type == FileType::regular;
}

bool isExecutableFile(FileSystem& fileSystem, const std::string& path) {
    return isFile(fileSystem, path) && fileSystem.checkAccess(path, Access::execute);
}

ProgramStart programStart(const ExifToolCommand& command, std::span<const std::string> options,
                          std::span<const std::string> arguments) {
    ProgramStart program;
    program.executable = command.executable;
    auto& all = program.arguments;
    all.reserve(command.leadingArguments.size() + options.size() + arguments.size());
    for (const auto part : {std::span(command.leadingArguments), options, arguments})
        all.insert(all.end(), part.begin(), part.end());
    return program;
}

// A running program and what it says. Both pipes must stay open for as long as it runs: writing to one that nobody can
// read would end it.
struct Conversation {
    ChildProcess process;
    FileDescriptor output;
    FileDescriptor errors;
};

std::optional<Conversation> startConversation(ProgramStart program) {
    auto output = makeWidePipe();
    auto errors = makeWidePipe();
    if (!output || !errors) return std::nullopt;
    program.descriptors = {{output->writeEnd.get(), STDOUT_FILENO}, {errors->writeEnd.get(), STDERR_FILENO}};
    auto process = ChildProcess::start(program);
    if (!process) return std::nullopt;
    // Our own ends for writing close here, so that the output has an end.
    return Conversation{std::move(*process), std::move(output->readEnd), std::move(errors->readEnd)};
}

bool endsInTime(ChildProcess& process, milliseconds timeout) {
    if (timeout <= milliseconds::zero()) {
        static_cast<void>(process.waitForEnd());
        return true;
    }
    if (process.waitFor(timeout)) return true;
    process.send(SIGTERM);
    if (!process.waitFor(kTerminationTime)) process.send(SIGINT);
    return false;
}

std::optional<std::vector<Json>> objectsIn(std::string_view output) {
    auto parsed = parseJson(output);
    if (!parsed || !parsed->is_array()) return std::nullopt;
    for (const auto& element : *parsed)
        if (!element.is_object()) return std::nullopt;
    return std::move(parsed->get_ref<Json::array_t&>());
}

}  // namespace

ExifTool::ExifTool(FileSystem& fileSystem, ExifToolPlaces places)
    : fileSystem_(fileSystem), places_(std::move(places)) {}

const std::optional<ExifToolCommand>& ExifTool::locateExifTool() const {
    std::call_once(lookedFor_, [this] { command_ = findCommand(); });
    return command_;
}

bool ExifTool::runExifTool(std::span<const std::string> arguments) const {
    static const std::vector<std::string> kOptions = {"-api", "LargeFileSupport=1"};
    const auto& command = locateExifTool();
    if (!command) return false;
    auto process = ChildProcess::start(programStart(*command, kOptions, arguments));
    return process && process->waitForEnd() == 0;
}

std::optional<std::vector<Json>> ExifTool::runExifToolJSON(std::span<const std::string> arguments,
                                                           milliseconds timeout) const {
    static const std::vector<std::string> kOptions = {"-api", "LargeFileSupport=1", "-json"};
    const auto& command = locateExifTool();
    if (!command) return std::nullopt;
    auto conversation = startConversation(programStart(*command, kOptions, arguments));
    if (!conversation || !endsInTime(conversation->process, timeout)) return std::nullopt;
    return objectsIn(readWhatIsThere(conversation->output));
}

std::optional<ExifToolCommand> ExifTool::findCommand() const {
    if (!places_.resourceFolder.empty()) {
        auto script = joinPath(places_.resourceFolder, "exiftool");
        if (isFile(fileSystem_, script))
            return ExifToolCommand{kPerl, {"-I", places_.resourceFolder, std::move(script)}};
    }
    for (const auto& executable : places_.executables)
        if (isExecutableFile(fileSystem_, executable)) return ExifToolCommand{executable, {}};
    return std::nullopt;
}

}  // namespace vellomar::ExifUtils

#pragma once

#include <chrono>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/BytesJson.h"
#include "platform/FileSystem.h"

namespace vellomar::ExifUtils {

// How ExifTool is started: the program, and what comes before all other arguments.
struct ExifToolCommand {
    std::string executable;
    std::vector<std::string> leadingArguments;

    bool operator==(const ExifToolCommand&) const = default;
};

// Where ExifTool is looked for.
struct ExifToolPlaces {
    std::string resourceFolder;  // what the application brought along; empty if nothing
    std::vector<std::string> executables = {"/opt/homebrew/bin/exiftool", "/usr/local/bin/exiftool",
                                            "/usr/bin/exiftool"};
};

// The outside program that reads, and writes, the metadata of more formats than the libraries know. One object for the
// life of the process. All calls may be made from any thread, and several at once; each blocks its thread until the
// program has ended. The program runs at the priority of the calling thread.
//
// Failures are not told apart: without the program, or when it cannot be started, there is no answer.
class ExifTool {
public:
    // `fileSystem` must outlive this.
    explicit ExifTool(FileSystem& fileSystem, ExifToolPlaces places = {});

    // The command; nothing where there is none. A copy in the resource folder comes first and runs through the
    // system's Perl, then the first of the executables that is a file this user may execute. Looked for once, at the
    // first call of any of these: what is installed later counts from the next start on.
    [[nodiscard]] const std::optional<ExifToolCommand>& locateExifTool() const;

    // Runs it with `arguments` for what it does to files. However long it takes. True exactly if it ended with status
    // 0.
    [[nodiscard]] bool runExifTool(std::span<const std::string> arguments) const;

    // Runs it with `arguments` for what it tells: one object for each file that it could look at, in its order.
    //
    // A program that still runs after `timeout` is asked to terminate, half a second later interrupted, and then left
    // to itself; there is no answer then. Zero or less waits without limit. Nor is there an answer when the output is
    // no list of objects. The exit status does not matter: one bad file among many makes it a failure.
    //
    // The output is read when the program has ended, so one that is larger than a pipe (1 MiB as a rule) holds the
    // program up until the time limit. What it says on its standard error is dropped, but must fit likewise.
    [[nodiscard]] std::optional<std::vector<Json>> runExifToolJSON(std::span<const std::string> arguments,
                                                                   std::chrono::milliseconds timeout) const;

private:
    [[nodiscard]] std::optional<ExifToolCommand> findCommand() const;

    FileSystem& fileSystem_;
    const ExifToolPlaces places_;
    mutable std::once_flag lookedFor_;
    mutable std::optional<ExifToolCommand> command_;  // set under lookedFor_, then never again
};

}  // namespace vellomar::ExifUtils

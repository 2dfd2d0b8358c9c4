#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "dates/ExifTool.h"
#include "platform/LinuxFileSystem.h"
#include "support/TemporaryFolder.h"

namespace vellomar::testing {

// A shell script in ExifTool's place. It writes down the arguments of each call, then does as it is told.
class FakeExifTool {
public:
    // `script` knows the folder of its files as $here. There is one, "answer", with that content.
    explicit FakeExifTool(std::string_view script, std::string_view answer = "") {
        folder_.write("answer", answer);
        const auto path = folder_.write("exiftool", "#!/bin/sh\nhere='" + folder_.path() +
                                                        "'\nprintf '%s\\0' $# \"$@\" >>\"$here/calls\"\n" +
                                                        std::string(script) + "\n");
        std::filesystem::permissions(path, std::filesystem::perms{0755});
    }

    // One that answers each call with `output`.
    [[nodiscard]] static FakeExifTool printing(std::string_view output) {
        return FakeExifTool("cat \"$here/answer\"", output);
    }

    [[nodiscard]] const ExifUtils::ExifTool& tool() const { return tool_; }

    // The arguments of each call so far.
    [[nodiscard]] std::vector<std::vector<std::string>> calls() const {
        std::vector<std::vector<std::string>> calls;
        if (!exists(*this / "calls")) return calls;
        const auto log = contentOf(*this / "calls");
        std::string_view rest = log;
        const auto nextWord = [&rest] {
            std::string word(rest.substr(0, rest.find('\0')));
            rest.remove_prefix(word.size() + 1);
            return word;
        };
        while (!rest.empty()) {
            std::vector<std::string> call(std::stoul(nextWord()));
            for (auto& argument : call)
                argument = nextWord();
            calls.push_back(std::move(call));
        }
        return calls;
    }

    // The absolute path of a file in its folder.
    [[nodiscard]] std::string operator/(std::string_view name) const { return folder_ / name; }

private:
    TemporaryFolder folder_;
    LinuxFileSystem fileSystem_;
    ExifUtils::ExifTool tool_{fileSystem_, {.resourceFolder = "", .executables = {folder_ / "exiftool"}}};
};

}  // namespace vellomar::testing

#include "platform/MountTable.h"

#include <algorithm>
#include <optional>

namespace vellomar {
namespace {

// The next word of `text`, which it takes away together with the blank behind.
std::string_view takeWord(std::string_view& text) {
    const auto word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(text.size(), word.size() + 1));
    return word;
}

bool isOctal(char letter) {
    return letter >= '0' && letter <= '7';
}

// Blanks, line ends, backslashes and "#" stand there as "\040": three octal digits.
std::string unescaped(std::string_view word) {
    std::string text;
    while (!word.empty()) {
        const bool isEscape =
            word.size() >= 4 && word[0] == '\\' && isOctal(word[1]) && isOctal(word[2]) && isOctal(word[3]);
        text += isEscape ? static_cast<char>((word[1] - '0') * 64 + (word[2] - '0') * 8 + (word[3] - '0')) : word[0];
        word.remove_prefix(isEscape ? 4 : 1);
    }
    return text;
}

// A line reads "36 35 98:0 /root /mount/point rw,noatime master:1 - type source rw", with any number of words before
// the dash. The options may change while it is mounted, so they are not part of the key.
std::optional<Mount> mountOf(std::string_view line) {
    constexpr std::string_view kDash = " - ";
    const auto dash = line.find(kDash);
    if (dash == std::string_view::npos) return std::nullopt;
    auto front = line.substr(0, dash);
    const auto* const begin = front.data();
    takeWord(front);
    takeWord(front);
    const auto device = takeWord(front);
    takeWord(front);
    const auto path = takeWord(front);
    if (path.empty()) return std::nullopt;
    const std::string_view key(begin, static_cast<std::size_t>(path.data() + path.size() - begin));
    auto back = line.substr(dash + kDash.size());
    const auto type = takeWord(back);
    return Mount{std::string(key), std::string(device), unescaped(path), std::string(type), unescaped(takeWord(back))};
}

}  // namespace

std::vector<Mount> mountsIn(std::string_view mountInfo) {
    std::vector<Mount> mounts;
    while (!mountInfo.empty()) {
        const auto line = mountInfo.substr(0, mountInfo.find('\n'));
        if (auto mount = mountOf(line)) mounts.push_back(*std::move(mount));
        mountInfo.remove_prefix(std::min(mountInfo.size(), line.size() + 1));
    }
    return mounts;
}

std::vector<Mount> newMounts(const std::vector<Mount>& before, const std::vector<Mount>& now) {
    std::vector<Mount> added;
    for (const auto& mount : now)
        if (std::ranges::find(before, mount.key, &Mount::key) == before.end()) added.push_back(mount);
    return added;
}

}  // namespace vellomar

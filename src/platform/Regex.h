#pragma once

#include <memory>
#include <optional>
#include <string_view>

namespace vellomar {

// A compiled regular expression over bytes. Case-sensitive; `\d` is an ASCII digit; a text that is not UTF-8 is
// searched like any other. Made once (usually as a static constant), then searched from any number of threads.
class Regex {
public:
    // `pattern` in Perl syntax. A pattern that does not compile is a programming fault: std::logic_error.
    explicit Regex(std::string_view pattern);
    ~Regex();
    Regex(const Regex&) = delete;
    Regex& operator=(const Regex&) = delete;

    // The whole text of the first match, a part of `text`; nothing when there is none.
    [[nodiscard]] std::optional<std::string_view> firstMatch(std::string_view text) const;

    [[nodiscard]] bool matches(std::string_view text) const { return firstMatch(text).has_value(); }

private:
    struct Compiled;
    std::unique_ptr<const Compiled> compiled_;
};

}  // namespace vellomar

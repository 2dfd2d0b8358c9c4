#include "run/Arguments.h"

#include <charconv>
#include <functional>
#include <map>
#include <stdexcept>

namespace vellomar::bench {
namespace {

template <typename Number>
Number positiveNumber(const std::string& word) {
    Number value = 0;
    const auto* end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, value);
    if (error != std::errc() || stop != end || value < 1) throw std::runtime_error("not a number above 0: " + word);
    return value;
}

}  // namespace

Arguments argumentsFrom(const std::vector<std::string>& words) {
    Arguments arguments;
    const std::map<std::string, std::function<void()>> flags = {
        {"--strict", [&] { arguments.isStrict = true; }},
        {"--keep", [&] { arguments.keepsFolders = true; }},
        {"--json", [&] { arguments.wantsJson = true; }},
        {"--help", [&] { arguments.wantsHelp = true; }},
    };
    const std::map<std::string, std::function<void(const std::string&)>> values = {
        {"--only", [&](const std::string& name) { arguments.only.push_back(name); }},
        {"--files", [&](const std::string& count) { arguments.files = positiveNumber<std::size_t>(count); }},
        {"--rounds", [&](const std::string& count) { arguments.rounds = positiveNumber<int>(count); }},
    };
    for (auto word = words.begin(); word != words.end(); ++word) {
        if (const auto flag = flags.find(*word); flag != flags.end()) {
            flag->second();
            continue;
        }
        const auto option = values.find(*word);
        if (option == values.end()) throw std::runtime_error("unknown argument: " + *word);
        if (++word == words.end()) throw std::runtime_error(option->first + " needs a value");
        option->second(*word);
    }
    return arguments;
}

}  // namespace vellomar::bench

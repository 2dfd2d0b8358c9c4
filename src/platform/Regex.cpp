#include "platform/Regex.h"

#include <array>
#include <stdexcept>
#include <string>

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

namespace vellomar {
namespace {

using MatchData = std::unique_ptr<pcre2_match_data, decltype(&pcre2_match_data_free)>;

// Room for the whole match alone, as groups are never read; one per thread, since a match writes into it.
pcre2_match_data* matchDataOfThisThread() {
    thread_local const MatchData data(pcre2_match_data_create(1, nullptr), &pcre2_match_data_free);
    return data.get();
}

std::string messageOf(int errorCode) {
    std::array<PCRE2_UCHAR, 256> buffer{};
    pcre2_get_error_message(errorCode, buffer.data(), buffer.size());
    return reinterpret_cast<const char*>(buffer.data());
}

}  // namespace

struct Regex::Compiled {
    std::unique_ptr<pcre2_code, decltype(&pcre2_code_free)> code;
};

Regex::Regex(std::string_view pattern) {
    int error = 0;
    PCRE2_SIZE position = 0;
    auto* code =
        pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern.data()), pattern.size(), 0, &error, &position, nullptr);
    if (code == nullptr) throw std::logic_error("regular expression: " + messageOf(error));
    compiled_ = std::make_unique<const Compiled>(Compiled{{code, &pcre2_code_free}});
    // Without a JIT for this processor the interpreter runs the same expression, only slower.
    pcre2_jit_compile(code, PCRE2_JIT_COMPLETE);
}

Regex::~Regex() = default;

std::optional<std::string_view> Regex::firstMatch(std::string_view text) const {
    auto* data = matchDataOfThisThread();
    const int found =
        pcre2_match(compiled_->code.get(), reinterpret_cast<PCRE2_SPTR>(text.data()), text.size(), 0, 0, data, nullptr);
    if (found < 0) return std::nullopt;
    const auto* range = pcre2_get_ovector_pointer(data);
    return text.substr(range[0], range[1] - range[0]);
}

}  // namespace vellomar

#pragma once

#include <span>
#include <string_view>
#include <variant>

#include "engine/model/Options.h"
#include "platform/BytesJson.h"

namespace vellomar {

// The member of Options that an option is.
using OptionMember = std::variant<bool Options::*, int Options::*, std::string Options::*, ConflictPolicy Options::*,
                                  NamingStyle Options::*, DuplicateAction Options::*>;

// One option: by what names it is kept, and which member of Options it is.
struct OptionField {
    std::string_view key;   // in the settings
    std::string_view name;  // in a preset
    OptionMember member;
};

// All of them.
[[nodiscard]] std::span<const OptionField> optionFields();

// The one with this key in the settings. There must be one.
[[nodiscard]] const OptionField& optionField(std::string_view key);

// The option's value in `options`, as settings and presets keep it.
[[nodiscard]] Json optionValue(const Options& options, const OptionField& field);

// Puts a value that was kept into `options`. False, and no change, if it is not of the option's type or one of its
// cases.
[[nodiscard]] bool setOption(Options& options, const OptionField& field, const Json& value);

}  // namespace vellomar

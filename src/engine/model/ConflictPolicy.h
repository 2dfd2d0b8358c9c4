#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace vellomar {

// What to do when a file already stands at the destination.
enum class ConflictPolicy {
    skip,       // leave the existing file, drop the new copy
    rename,     // keep both, the new one gets a free name
    overwrite,  // put the new file in the existing one's place
};

inline constexpr std::array kConflictPolicies = {ConflictPolicy::skip, ConflictPolicy::rename,
                                                 ConflictPolicy::overwrite};

// The words shown to the user, which are also what settings and presets keep.
[[nodiscard]] std::string_view rawText(ConflictPolicy policy);

// Nothing for a text that names no policy; the reader then keeps its default.
[[nodiscard]] std::optional<ConflictPolicy> conflictPolicyFrom(std::string_view rawText);

}  // namespace vellomar

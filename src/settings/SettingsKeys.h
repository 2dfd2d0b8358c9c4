// The names under which the settings are kept, but for those of the options (see OptionFields.h).
#pragma once

#include <string_view>

namespace vellomar::keys {

// State of the interface.
inline constexpr std::string_view kHasCompletedWizard = "has_completed_wizard";
inline constexpr std::string_view kMigratedVidDefault = "migrated_vid_default_v34";  // kept; nothing depends on it
inline constexpr std::string_view kHasSeenWizardReminder = "has_seen_wizard_reminder";
inline constexpr std::string_view kProgressStyle = "ui_progressStyle";  // kept; selects nothing
inline constexpr std::string_view kShowAdvanced = "ui_showAdvanced";
inline constexpr std::string_view kDryRunWarningDismissed = "dryRunWarningDismissed";  // kept; nothing reads it
inline constexpr std::string_view kSecretFloppyMode = "secret_floppy_mode";
inline constexpr std::string_view kDestPath = "last_destPath";
inline constexpr std::string_view kRecentSources = "recent_sources";
inline constexpr std::string_view kRecentDests = "recent_dests";

// Lists and bytes.
inline constexpr std::string_view kSourceEntries = "source_entries_v2";
inline constexpr std::string_view kDestBookmark = "bookmark_dest";
inline constexpr std::string_view kSavedPresets = "saved_presets";

// Of an earlier version; read when there is no list of sources yet, and left in place.
inline constexpr std::string_view kLegacySourcePath = "last_sourcePath";
inline constexpr std::string_view kLegacySourceBookmark = "bookmark_source";

}  // namespace vellomar::keys

#include <gtest/gtest.h>

#include "settings/SettingsFile.h"
#include "settings/StoredUserDefaults.h"

namespace vellomar {
namespace {

TEST(StoredUserDefaults, FollowTheSettings) {
    testing::SettingsFile file;
    const auto store = file.open();
    const StoredUserDefaults defaults(*store);
    EXPECT_FALSE(defaults.secretFloppyMode());
    store->setValue("secret_floppy_mode", true);
    EXPECT_TRUE(defaults.secretFloppyMode());
    store->setValue("another", true);
    EXPECT_TRUE(defaults.secretFloppyMode());
    store->remove("secret_floppy_mode");
    EXPECT_FALSE(defaults.secretFloppyMode());
}

TEST(StoredUserDefaults, AreReadAtTheStart) {
    testing::SettingsFile file(R"({"secret_floppy_mode": true})");
    const auto store = file.open();
    EXPECT_TRUE(StoredUserDefaults(*store).secretFloppyMode());
}

}  // namespace
}  // namespace vellomar

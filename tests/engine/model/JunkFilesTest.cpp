#include <string>

#include <gtest/gtest.h>

#include "engine/model/JunkFiles.h"
#include "platform/Path.h"

namespace vellomar {
namespace {

bool isJunk(std::string_view lowercasedName) {
    return isJunkFile(lowercasedName, pathExtension(lowercasedName));
}

TEST(JunkFiles, KnownNamesAreJunk) {
    for (const std::string_view name :
         {"thumbs.db", "desktop.ini", ".ds_store", "picasa.ini", "thumbs.db:encryptable", "ethumbs.db",
          "zbthumbnail.info", "albumartsmall.jpg", "folder.jpg", ".bridgesort", ".apdisk", "mspaint.exe"}) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(isJunk(name));
        EXPECT_TRUE(isJunkFile(name, ""));  // by the name alone
    }
}

TEST(JunkFiles, KnownExtensionsAreJunk) {
    for (const std::string_view extension : {"db", "ini", "lnk", "url", "tmp"}) {
        SCOPED_TRACE(extension);
        EXPECT_TRUE(isJunk("anything." + std::string(extension)));
        EXPECT_FALSE(isJunk(extension));
        EXPECT_FALSE(isJunk(std::string(extension) + ".jpg"));
    }
}

TEST(JunkFiles, HiddenNamesAreJunk) {
    EXPECT_TRUE(isJunk(".hidden.jpg"));
    EXPECT_TRUE(isJunk("._img_1.jpg"));
    EXPECT_TRUE(isJunk("."));
}

TEST(JunkFiles, OtherNamesAreNot) {
    for (const char* name : {"img_1.jpg", "folder2.jpg", "folder.jpeg", "folder", "albumart.jpg", "thumbs.db2",
                             "mspaint", "noext", "a.dbx", "photo.tmp.jpg", "zbthumbnail"})
        EXPECT_FALSE(isJunk(name)) << name;
}

}  // namespace
}  // namespace vellomar

#include <gtest/gtest.h>

#include "ui/QtPrinters.h"
#include "ui/thumbnails/ThumbnailAddress.h"

namespace vellomar {
namespace {

TEST(ThumbnailAddress, IsThereForSeventeenKindsOfFile) {
    for (const char* const extension : {"jpg", "jpeg", "png", "heic", "heif", "tif", "tiff", "bmp", "webp", "arw",
                                        "cr2", "cr3", "nef", "orf", "raf", "rw2", "dng", "JPG", "Heic"})
        EXPECT_FALSE(thumbnailAddress("/in/a." + std::string(extension)).isEmpty()) << extension;
    for (const char* const name :
         {"/in/a.MOV", "/in/a.mp4", "/in/a.gif", "/in/a.xmp", "/in/jpg", "/in/.jpg", "/in/a.jpg/b", ""})
        EXPECT_TRUE(thumbnailAddress(name).isEmpty()) << name;
}

TEST(ThumbnailAddress, CarriesThePathByteForByte) {
    for (const std::string path :
         {"/in/a.jpg", "/in/a b%20c?#&+.jpg", "/in/\xff\xfe\n\"'.jpg", "/in/Ünïcode/日本.jpg"}) {
        const auto address = thumbnailAddress(path);
        EXPECT_EQ(address.scheme(), "image");
        EXPECT_EQ(address.host(), "thumbnails");
        const auto id = address.toString(QUrl::RemoveScheme | QUrl::RemoveAuthority).mid(1);
        EXPECT_EQ(pathOfThumbnail(id), path);
    }
    EXPECT_EQ(pathOfThumbnail("no base64!"), "");
}

}  // namespace
}  // namespace vellomar

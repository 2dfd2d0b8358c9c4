#include <set>

#include <gtest/gtest.h>

#include "platform/Regex.h"
#include "platform/Uuid.h"

namespace vellomar {
namespace {

TEST(Uuid, WritesItsBytesInGroups) {
    const Uuid uuid{{0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x46, 0x07, 0x88, 0x09, 0x0A, 0x0B, 0x0C, 0xDD, 0xEE, 0xFF}};
    EXPECT_EQ(uuid.text(), "00010203-0405-4607-8809-0A0B0CDDEEFF");
}

TEST(Uuid, ReadsWhatItWritesInEitherCase) {
    const Uuid uuid{{0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x46, 0x07, 0x88, 0x09, 0x0A, 0x0B, 0x0C, 0xDD, 0xEE, 0xFF}};
    EXPECT_EQ(Uuid::fromText("00010203-0405-4607-8809-0A0B0CDDEEFF"), uuid);
    EXPECT_EQ(Uuid::fromText("00010203-0405-4607-8809-0a0b0cddeeff"), uuid);
}

TEST(Uuid, ReadsNothingElse) {
    for (const auto* text : {"", "0", "00010203040546078809-0A0B0CDDEEFF", "00010203-0405-4607-8809-0A0B0CDDEEF",
                             "00010203-0405-4607-8809-0A0B0CDDEEFFF", "0001020-30405-4607-8809-0A0B0CDDEEFF",
                             "G0010203-0405-4607-8809-0A0B0CDDEEFF", "{00010203-0405-4607-8809-0A0B0CDDEEFF}",
                             "+0010203-0405-4607-8809-0A0B0CDDEEFF", " 0010203-0405-4607-8809-0A0B0CDDEEFF"})
        EXPECT_EQ(Uuid::fromText(text), std::nullopt) << text;
}

TEST(Uuid, RandomOnesAreOfVersionFourAndDistinct) {
    constexpr std::size_t kCount = 2'000;
    const Regex form(R"(\A[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}\z)");
    std::set<std::string> texts;
    for (std::size_t i = 0; i < kCount; ++i) {
        const auto text = Uuid::random().text();
        ASSERT_TRUE(form.matches(text)) << text;
        texts.insert(text);
    }
    EXPECT_EQ(texts.size(), kCount);
}

}  // namespace
}  // namespace vellomar

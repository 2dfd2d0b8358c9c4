#include <string>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "support/Morning.h"
#include "undo/ManifestText.h"

namespace vellomar {
namespace {

constexpr const char* kHash = "9f86d081884c7d659a2feaa0c55ad015a3bf4f1b2b0b822cd15d6c15b0f00a08";

UndoManifest manifestOfTwo() {
    UndoManifest manifest{"2024-06-14T11:40:58", "/cards|/phone", "/photos", {}};
    manifest.appendUndoEntry({UndoEntry::OpType::copy, "/cards/IMG_1.JPG", "/photos/2024/IMG_1.jpg", kHash, kMorning});
    manifest.appendUndoEntry({UndoEntry::OpType::move, "/phone/a.jpg", "/photos/2024/a.jpg", std::nullopt,
                              kMorning + std::chrono::seconds(1)});
    return manifest;
}

constexpr const char* kTextOfTwo = R"({
  "destRoot": "/photos",
  "entries": [
    {
      "destination": "/photos/2024/IMG_1.jpg",
      "op": "copy",
      "sha256": "9f86d081884c7d659a2feaa0c55ad015a3bf4f1b2b0b822cd15d6c15b0f00a08",
      "source": "/cards/IMG_1.JPG",
      "timestamp": "2024-06-14T09:41:07Z"
    },
    {
      "destination": "/photos/2024/a.jpg",
      "op": "move",
      "source": "/phone/a.jpg",
      "timestamp": "2024-06-14T09:41:08Z"
    }
  ],
  "runID": "2024-06-14T11:40:58",
  "sourceRoot": "/cards|/phone"
})";

// A text of one entry with `entry` between its braces.
std::string textWithEntry(std::string_view entry) {
    return fmt::format(R"({{"destRoot":"/d","entries":[{{{}}}],"runID":"r","sourceRoot":"/s"}})", entry);
}

TEST(ManifestText, KeysStandInOrderEachOnALineOfItsOwn) {
    EXPECT_EQ(manifestText(manifestOfTwo()), kTextOfTwo);
}

TEST(ManifestText, ComesBack) {
    EXPECT_EQ(manifestFromText(kTextOfTwo), manifestOfTwo());
}

TEST(ManifestText, AnEmptyListIsAListAllTheSame) {
    const UndoManifest empty{"r", "/s", "/d", {}};
    EXPECT_EQ(manifestText(empty),
              "{\n  \"destRoot\": \"/d\",\n  \"entries\": [],\n  \"runID\": \"r\",\n  \"sourceRoot\": \"/s\"\n}");
    EXPECT_EQ(manifestFromText(manifestText(empty)), empty);
}

TEST(ManifestText, PathsOfAnyBytesComeBack) {
    for (const std::string& path :
         {std::string("/br\xFC"
                      "cke.jpg"),
          std::string("/line\nbreak.jpg"), std::string("/the \"best\" \\ one.jpg"), std::string("/📷 Été — 日本.jpg"),
          std::string("/\x80\xFF\xC3"), std::string("/\xF4\x8F\xBF\xBFM"), std::string("/\\udc80"),
          std::string(1, '\x7F'), std::string("")}) {
        SCOPED_TRACE(path);
        UndoManifest manifest{path, path, path, {}};
        manifest.appendUndoEntry({UndoEntry::OpType::move, path, path, path, kMorning});
        EXPECT_EQ(manifestFromText(manifestText(manifest)), manifest);
    }
}

TEST(ManifestText, AStrayByteIsWrittenAsALoneSurrogate) {
    const UndoManifest manifest{"r",
                                "/br\xFC"
                                "cke",
                                "/d",
                                {}};
    EXPECT_NE(manifestText(manifest).find("\"sourceRoot\": \"/br\\udcfccke\"\n"), std::string::npos);
}

TEST(ManifestText, TheFormOfBlanksAndSlashesDoesNotMatter) {
    const auto manifest = manifestFromText(
        "\n{\"sourceRoot\":\"\\/s\",\t\"runID\" : \"r\", \"entries\":[{\"timestamp\":\"2024-06-14T09:41:07Z\","
        "\"source\":\"\\/s\\/a.jpg\",\"op\":\"copy\",\"destination\":\"/d\\/a.jpg\"}],\"destRoot\":\"\\/d\"}\r\n");
    const UndoManifest expected{
        "r", "/s", "/d", {{UndoEntry::OpType::copy, "/s/a.jpg", "/d/a.jpg", std::nullopt, kMorning}}};
    EXPECT_EQ(manifest, expected);
}

constexpr std::string_view kDestination = R"("destination":"/d/a")";
constexpr std::string_view kOp = R"("op":"move")";
constexpr std::string_view kSource = R"("source":"/s/a")";
constexpr std::string_view kTime = R"("timestamp":"2024-06-14T09:41:07Z")";

TEST(ManifestText, AnEntryNeedsEachOfItsKeys) {
    EXPECT_TRUE(manifestFromText(textWithEntry(fmt::format("{},{},{},{}", kDestination, kOp, kSource, kTime))));
    for (const auto& entry :
         {fmt::format("{},{},{}", kOp, kSource, kTime), fmt::format("{},{},{}", kDestination, kSource, kTime),
          fmt::format("{},{},{}", kDestination, kOp, kTime), fmt::format("{},{},{}", kDestination, kOp, kSource),
          std::string()})
        EXPECT_FALSE(manifestFromText(textWithEntry(entry))) << entry;
}

TEST(ManifestText, AnEntryNeedsTheRightTypes) {
    for (const std::string_view member :
         {R"("destination":1)", R"("source":null)", R"("op":"rename")", R"("op":"Copy")", R"("op":"")", R"("op":0)",
          R"("timestamp":1718358067)", R"("timestamp":"2024-06-14T09:41:07.5Z")", R"("timestamp":"yesterday")",
          R"("source":["/s/a"])", R"("sha256":1)", R"("sha256":false)", R"("sha256":{})"}) {
        // Of two members with one key the later one counts.
        const auto entry = fmt::format("{},{},{},{},{}", kDestination, kOp, kSource, kTime, member);
        EXPECT_FALSE(manifestFromText(textWithEntry(entry))) << member;
    }
}

TEST(ManifestText, AHashMayBeAbsentOrNull) {
    const auto entry = fmt::format("{},{},{},{}", kDestination, kOp, kSource, kTime);
    const auto hashOf = [](const std::string& text) {
        const auto manifest = manifestFromText(text);
        EXPECT_TRUE(manifest && manifest->entries.size() == 1) << text;
        return manifest ? manifest->entries.at(0).sha256 : "no manifest";
    };
    EXPECT_EQ(hashOf(textWithEntry(entry)), std::nullopt);
    EXPECT_EQ(hashOf(textWithEntry(entry + R"(,"sha256":null)")), std::nullopt);
    EXPECT_EQ(hashOf(textWithEntry(entry + R"(,"sha256":"ab")")), "ab");
}

TEST(ManifestText, TheTopNeedsEachOfItsKeysWithTheRightType) {
    constexpr const char* kMembers[] = {R"("destRoot":"/d")", R"("entries":[])", R"("runID":"r")",
                                        R"("sourceRoot":"/s")"};
    for (const auto* left : kMembers) {
        std::string text;
        for (const auto* member : kMembers)
            if (member != left) text += fmt::format("{}{}", text.empty() ? "" : ",", member);
        EXPECT_FALSE(manifestFromText("{" + text + "}")) << left;
        EXPECT_TRUE(manifestFromText(fmt::format("{{{},{}}}", text, left))) << left;
    }
    for (const char* wrong : {R"("destRoot":null)", R"("entries":null)", R"("entries":{})", R"("entries":"[]")",
                              R"("entries":[null])", R"("entries":[1])", R"("entries":[[]])", R"("entries":[[{}]])",
                              R"("entries":{"a":{"b":1}})", R"("runID":7)", R"("sourceRoot":["/s"])"}) {
        const auto text = fmt::format(R"({{"destRoot":"/d","entries":[],"runID":"r","sourceRoot":"/s",{}}})", wrong);
        EXPECT_FALSE(manifestFromText(text)) << wrong;
    }
}

TEST(ManifestText, OneBadEntrySpoilsTheWhole) {
    const auto good = fmt::format("{},{},{},{}", kDestination, kOp, kSource, kTime);
    EXPECT_EQ(manifestFromText(textWithEntry(good + "},{" + good)).value().entries.size(), 2U);
    EXPECT_FALSE(manifestFromText(textWithEntry(good + "},{" + std::string(kOp))));
    EXPECT_FALSE(manifestFromText(textWithEntry(std::string(kOp) + "},{" + good)));
}

TEST(ManifestText, OtherKeysAreIgnored) {
    const auto good = fmt::format("{},{},{},{}", kDestination, kOp, kSource, kTime);
    const auto plain = manifestFromText(textWithEntry(good));
    ASSERT_TRUE(plain.has_value());
    EXPECT_EQ(manifestFromText(textWithEntry(good + R"(,"size":12,"more":{"op":"rename"},"list":[{}])")), plain);
    for (const char* extra : {R"("version":2)", R"("extra":[{"op":"rename"},{}])", R"("extra":{"entries":[{}]})",
                              R"("extra":[[{"entries":[{}]}]])"}) {
        auto text = textWithEntry(good);
        EXPECT_EQ(manifestFromText(fmt::format("{{{},{}", extra, text.substr(1))), plain) << extra;
        text.pop_back();
        EXPECT_EQ(manifestFromText(fmt::format("{},{}}}", text, extra)), plain) << extra;
    }
}

TEST(ManifestText, OtherTextsAreNoManifests) {
    for (const char* text : {"", "{}", "[]", "null", "\"text\"", "not JSON", "[{\"entries\":[]}]"})
        EXPECT_FALSE(manifestFromText(text)) << text;
}

TEST(ManifestText, ATextThatIsCutIsNoManifest) {
    auto manifest = manifestOfTwo();
    manifest.entries[0].source =
        "/br\xFC"
        "cke 📷 \xF4\x8F\xBF\xBF";
    const auto text = manifestText(manifest);
    for (std::size_t length = 0; length < text.size(); ++length)
        EXPECT_FALSE(manifestFromText(text.substr(0, length))) << length;
    EXPECT_EQ(manifestFromText(text), manifest);
}

TEST(ManifestText, AFlippedByteIsNeverWorseThanNoManifest) {
    const auto text = manifestText(manifestOfTwo());
    for (std::size_t i = 0; i < text.size(); ++i) {
        for (const unsigned flip : {0x01U, 0x20U, 0x80U}) {
            auto damaged = text;
            damaged[i] = static_cast<char>(static_cast<unsigned char>(damaged[i]) ^ flip);
            const auto manifest = manifestFromText(damaged);
            EXPECT_TRUE(!manifest || manifest->entries.size() == 2) << i;
        }
    }
}

}  // namespace
}  // namespace vellomar

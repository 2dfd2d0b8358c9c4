#include <gmock/gmock.h>

#include "platform/BytesJson.h"
#include "settings/OptionsPreset.h"

namespace vellomar {
namespace {

// One with nothing as by default.
OptionsPreset changedPreset() {
    Options options;
    options.dryRun = false;
    options.moveOriginalsWhenReliable = true;
    options.parseMonthWords = options.parseNameDates = false;
    options.useExifToolForImages = options.useExifToolForVideo = false;
    options.conflictPolicy = ConflictPolicy::skip;
    options.computeHashForDuplicates = false;
    options.namingStyle = NamingStyle::custom;
    options.customFormat = "{original}.{ext}";
    options.syncFSDates = true;
    options.duplicateAction = DuplicateAction::moveToBin;
    options.usePerceptualHash = true;
    options.perceptualHashThreshold = 9;
    options.verifyAfterCopy = options.keepRawJpegPairs = options.moveSidecars = false;
    options.includeImages = false;
    options.includeVideos = options.includeOther = true;
    options.convertHEICToJPEG = options.stripGPS = options.stripAllMetadata = true;
    return {Uuid::fromText("00010203-0405-4607-8809-0A0B0CDDEEFF").value(), "iPhone backup", options};
}

const char* const kText = R"([{"id":"00010203-0405-4607-8809-0A0B0CDDEEFF","name":"iPhone backup","dryRun":false,
    "moveOriginalsWhenReliable":true,"parseMonthWords":false,"parseNameDates":false,"useExifToolForImages":false,
    "useExifToolForVideo":false,"conflictPolicy":"Skip","computeHashForDuplicates":false,"namingStyle":"custom",
    "customFormat":"{original}.{ext}","syncFSDates":true,"duplicateAction":"Move to _Duplicates",
    "usePerceptualHash":true,"perceptualHashThreshold":9,"verifyAfterCopy":false,"keepRawJpegPairs":false,
    "moveSidecars":false,"includeImages":false,"includeVideos":true,"includeOther":true,"convertHEICToJPEG":true,
    "stripGPS":true,"stripAllMetadata":true}])";

TEST(OptionsPreset, IsWrittenWithTheseTwentyFiveMembers) {
    EXPECT_EQ(parseJson(presetsText({changedPreset()})).value(), parseJson(kText).value());
    EXPECT_EQ(parseJson(kText).value()[0].size(), 25U);
}

TEST(OptionsPreset, IsReadBack) {
    EXPECT_EQ(presetsFrom(kText), std::vector{changedPreset()});
    EXPECT_EQ(presetsFrom("[]"), std::vector<OptionsPreset>{});
}

TEST(OptionsPreset, WithoutAnyOneMemberThereIsNoList) {
    const auto whole = parseJson(kText).value();
    for (const auto& member : whole[0].items()) {
        auto list = whole;
        list.push_back(whole[0]);
        list[1].erase(member.key());
        EXPECT_EQ(presetsFrom(list.dump()), std::nullopt) << member.key();
        list[1][member.key()] = Json::array();
        EXPECT_EQ(presetsFrom(list.dump()), std::nullopt) << member.key();
    }
}

TEST(OptionsPreset, UnknownMembersDoNotMatter) {
    auto list = parseJson(kText).value();
    list[0]["storageIsNetwork"] = true;
    list[0]["resumeFromManifest"] = true;
    list[0]["somethingNew"] = {1, 2};
    EXPECT_EQ(presetsFrom(list.dump()), std::vector{changedPreset()});
}

TEST(OptionsPreset, WhatIsNoListIsNone) {
    for (const auto* text : {"", "{}", "null", "[null]", "[", "[{}]"})
        EXPECT_EQ(presetsFrom(text), std::nullopt) << text;
}

}  // namespace
}  // namespace vellomar

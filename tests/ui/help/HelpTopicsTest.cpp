#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/TextTable.h"
#include "ui/help/HelpTopics.h"
#include "ui/theme/Symbols.h"

namespace vellomar {
namespace {

struct ExpectedTopic {
    QString icon;
    QString title;
    QString content;
};

// A topic begins with "=== icon | title"; its content is what follows.
QList<ExpectedTopic> expectedTopics() {
    QList<ExpectedTopic> topics;
    for (const auto& text : testing::linesOfTable("help-topics.txt")) {
        if (text.startsWith("=== ")) {
            topics << ExpectedTopic{text.mid(4).section(" | ", 0, 0), text.section(" | ", 1), {}};
            continue;
        }
        auto& content = topics.last().content;
        content += (content.isNull() ? QString() : QString("\n")) + text;
        if (content.isNull()) content = "";
    }
    return topics;
}

const WebAddresses kAddresses{"https://example.org/coffee", "https://example.org/", "https://exiftool.org"};

TEST(HelpTopics, AreTheTextsInTheirOrder) {
    const auto expected = expectedTopics();
    const auto topics = helpTopics(kAddresses);
    ASSERT_EQ(expected.size(), 18);
    ASSERT_EQ(topics.size(), expected.size());
    for (qsizetype i = 0; i < topics.size(); ++i) {
        SCOPED_TRACE(expected[i].title.toStdString());
        EXPECT_EQ(topics[i].icon, expected[i].icon);
        EXPECT_EQ(topics[i].title, expected[i].title);
        EXPECT_EQ(topics[i].content, expected[i].content);
    }
}

TEST(HelpTopics, TheFirstAloneHasAnAction) {
    const auto topics = helpTopics(kAddresses);
    EXPECT_EQ(topics.first().actionURL, "https://exiftool.org");
    EXPECT_EQ(topics.first().actionLabel, "Open exiftool.org");
    for (const auto& topic : topics.mid(1)) {
        EXPECT_EQ(topic.actionURL, "") << topic.title.toStdString();
        EXPECT_EQ(topic.actionLabel, "") << topic.title.toStdString();
    }
}

TEST(HelpTopics, AnAddressThatIsNoneIsNoAction) {
    for (const char* address : {"", "exiftool.org", "file:///etc/passwd", "https://", "https://exif tool"}) {
        const auto topic = helpTopics({{}, {}, address}).first();
        EXPECT_EQ(topic.actionURL, "") << address;
        EXPECT_EQ(topic.actionLabel, "") << address;
    }
}

TEST(HelpTopics, TheProgramIsBuiltWithTheSiteOfExifTool) {
    EXPECT_EQ(siteName(WebAddresses::configured().exifToolSite), "exiftool.org");
}

TEST(HelpTopics, AreFoundByTitleOrContentInAnyCase) {
    const HelpTopic topic{"camera", "RAW Files", "Sony and Fuji", {}, {}};
    for (const char* found : {"", "raw", "RAW FILES", "fuji", "SONY AND"})
        EXPECT_TRUE(isFoundIn(topic, found)) << found;
    for (const char* missing : {"camera", "raw sony", "nikon"})
        EXPECT_FALSE(isFoundIn(topic, missing)) << missing;
}

}  // namespace
}  // namespace vellomar

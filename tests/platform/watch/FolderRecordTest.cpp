#include <gtest/gtest.h>

#include "platform/watch/FolderRecord.h"

namespace vellomar {
namespace {

TEST(FolderRecord, HoldsWhatWasAddedAtThatSizeAlone) {
    FolderRecord record;
    record.add("/a/1.jpg", 10);
    record.add("/a/2.jpg", 20);
    record.settle();
    EXPECT_TRUE(record.holds("/a/1.jpg", 10));
    EXPECT_TRUE(record.holds("/a/2.jpg", 20));
    EXPECT_FALSE(record.holds("/a/1.jpg", 11));
    EXPECT_FALSE(record.holds("/a/1.jpg", 20));
    EXPECT_FALSE(record.holds("/a/3.jpg", 10));
}

TEST(FolderRecord, KeepsEarlierBatchesWhenALaterOneIsSettled) {
    FolderRecord record;
    for (int batch = 0; batch < 20; ++batch) {
        for (int file = 0; file < 50; ++file)
            record.add("/f" + std::to_string(file * 20 + batch), file);
        record.settle();
    }
    for (int i = 0; i < 1000; ++i)
        EXPECT_TRUE(record.holds("/f" + std::to_string(i), i / 20)) << i;
    EXPECT_FALSE(record.holds("/f1000", 50));
}

TEST(FolderRecord, TakesOverAnother) {
    FolderRecord old;
    old.add("/old", 1);
    old.settle();
    FolderRecord record;
    record.add("/new", 2);
    record.add(old);
    record.settle();
    EXPECT_TRUE(record.holds("/old", 1));
    EXPECT_TRUE(record.holds("/new", 2));
}

}  // namespace
}  // namespace vellomar

#include "data/keyed_collection.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace kelvane::data {
namespace {

TEST(KeyedCollection, HoldsOneValueUnderAKeyInAnyLetterCase) {
    KeyedCollection<std::string> collection;
    collection.Add("Ab1", "first");
    EXPECT_EQ(collection.Item("aB1"), "first");
    EXPECT_TRUE(CollectionHasKey("AB1", collection));
    EXPECT_FALSE(CollectionHasKey("AB", collection));
    EXPECT_THROW(collection.Add("AB1", "second"), std::invalid_argument);
    EXPECT_EQ(collection.Item("Ab1"), "first");
    collection.Replace("ab1", "second");
    EXPECT_EQ(collection.Item("Ab1"), "second");
    EXPECT_EQ(collection.Count(), 1U);
}

TEST(KeyedCollection, MissingKeysAreErrors) {
    KeyedCollection<int> collection;
    EXPECT_THROW((void)collection.Item("0"), std::out_of_range);
    EXPECT_THROW(collection.Remove("0"), std::out_of_range);
    collection.Add("0", 2);
    collection.Remove("0");
    EXPECT_FALSE(CollectionHasKey("0", collection));
}

TEST(KeyedCollection, HoldsALargeList) {
    KeyedCollection<std::int16_t> collection;
    for (int identity = 1; identity <= 100000; ++identity)
        collection.Add(std::to_string(identity), static_cast<std::int16_t>(identity % 3));
    EXPECT_EQ(collection.Count(), 100000U);
    EXPECT_EQ(collection.Item("99998"), 99998 % 3);
    collection.Clear();
    EXPECT_EQ(collection.Count(), 0U);
}

}  // namespace
}  // namespace kelvane::data

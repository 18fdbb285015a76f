#include "adapters/database/translation_cache.h"

#include <gtest/gtest.h>

#include <string>

#include "adapters/tsql/sqlite/sqlite_writer.h"
#include "platform/ascii.h"

namespace kelvane::database {
namespace {

using tsql::LexedText;

// One table, which another program can give a column; what has been read stays known.
class GrowingCatalog : public tsql::Catalog {
public:
    bool hasColumn = false;
    int reads = 0;

    bool IsEmpty() const { return mTable == nullptr; }
    void Clear() { mTable = nullptr; }

    std::shared_ptr<const tsql::TableInfo> FindTable(std::string_view name) override {
        if (!platform::EqualIgnoringCase(name, "T")) return nullptr;
        if (!mTable) {
            ++reads;
            auto table = std::make_shared<tsql::TableInfo>();
            table->name = "T";
            table->columns.push_back({"a", *tsql::ParseType("int")});
            if (hasColumn) table->columns.push_back({"b", *tsql::ParseType("int")});
            mTable = table;
        }
        return mTable;
    }

private:
    std::shared_ptr<const tsql::TableInfo> mTable;
};

LexedText Lexed(std::string_view statement) {
    LexedText text;
    tsql::Lex(statement, text);
    return text;
}

class TranslationCacheTest : public testing::Test {
protected:
    using Cache = TranslationCache<TranslatedBatch, int>;

    std::shared_ptr<const tsql::Translation> Translated(std::string_view statement) {
        return Translate(Lexed(statement), mCatalog, mWriter, false, [&] { mCatalog.Clear(); });
    }
    std::shared_ptr<TranslatedBatch> Add(std::string_view statement, int key = 0) {
        auto batch = std::make_shared<TranslatedBatch>();
        batch->translation = Translated(statement);
        mCache.Add(Lexed(statement), key, batch);
        return batch;
    }
    std::shared_ptr<TranslatedBatch> Find(std::string_view statement, int key = 0) {
        return mCache.Find(Lexed(statement), key);
    }

    GrowingCatalog mCatalog;
    tsql::SqliteWriter mWriter;
    Cache mCache;
};

TEST_F(TranslationCacheTest, FindsABatchWithOtherValues) {
    const auto batch = Add("select a from T where a = 1");
    EXPECT_EQ(Find("select a from T where a = 27"), batch);
    EXPECT_EQ(Find("select a from T where a < 1"), nullptr);
}

TEST_F(TranslationCacheTest, WhatIsFixedInATextHasToBeTheSame) {
    const auto batch = Add("select top 3 a from T");
    EXPECT_EQ(Find("select top 3 a from T"), batch);
    EXPECT_EQ(Find("select top 4 a from T"), nullptr);
    const auto other = Add("select top 4 a from T");
    EXPECT_EQ(Find("select top 3 a from T"), batch);
    EXPECT_EQ(Find("select top 4 a from T"), other);
}

TEST_F(TranslationCacheTest, KeysAreKeptApart) {
    const auto first = Add("select a from T", 1);
    const auto second = Add("select a from T", 2);
    EXPECT_EQ(Find("select a from T", 1), first);
    EXPECT_EQ(Find("select a from T", 2), second);
    EXPECT_EQ(Find("select a from T", 3), nullptr);
}

TEST_F(TranslationCacheTest, TheOneUsedLongestAgoMakesRoom) {
    const auto statement = [](std::size_t i) {
        return "select a as n" + std::to_string(i) + " from T";
    };
    for (std::size_t i = 0; i < Cache::kMaxEntries; ++i) Add(statement(i));
    EXPECT_NE(Find(statement(0)), nullptr);
    Add(statement(Cache::kMaxEntries));
    EXPECT_NE(Find(statement(0)), nullptr);
    EXPECT_EQ(Find(statement(1)), nullptr);
    EXPECT_NE(Find(statement(2)), nullptr);
    mCache.Clear();
    EXPECT_EQ(Find(statement(0)), nullptr);
}

TEST_F(TranslationCacheTest, KeepsNeitherErrorsNorLongBatches) {
    EXPECT_TRUE(IsLasting(*Translated("select a from T")));
    Add("delete from Missing");
    EXPECT_EQ(Find("delete from Missing"), nullptr);
    std::string batch;
    for (int i = 0; i < 64; ++i) batch += "delete from T where a = 1 ";
    EXPECT_TRUE(IsLasting(*Translated(batch)));
    batch += "delete from T where a = 1 ";
    EXPECT_FALSE(IsLasting(*Translated(batch)));
    Add(batch);
    EXPECT_EQ(Find(batch), nullptr);
}

TEST_F(TranslationCacheTest, AnUnknownColumnIsLookedForInAFreshCatalog) {
    Translated("select a from T");
    mCatalog.hasColumn = true;
    EXPECT_NO_THROW(Translated("select b from T"));
    EXPECT_EQ(mCatalog.reads, 2);
    EXPECT_THROW(Translated("select c from T"), platform::DatabaseError);
    EXPECT_EQ(mCatalog.reads, 3);
}

TEST_F(TranslationCacheTest, AFreshCatalogIsReadOnce) {
    EXPECT_THROW(Translated("select c from T"), platform::DatabaseError);
    EXPECT_EQ(mCatalog.reads, 1);
}

}  // namespace
}  // namespace kelvane::database

#include "adapters/database/buffered_record_set.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace kelvane::database {
namespace {

using platform::DatabaseError;
using platform::Money;
using platform::Value;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = tsql::Type::Kind;

// What reached the engine, and whether the writer is still there.
struct Engine {
    std::vector<std::string> written;
    bool fails = false;
    bool released = false;
};

std::string TextOf(const tsql::Datum& datum) {
    if (const auto* text = std::get_if<std::string>(&datum)) return *text;
    if (const auto* number = std::get_if<std::int64_t>(&datum)) return std::to_string(*number);
    return "NULL";
}

class NotingWriter : public RowWriter {
public:
    explicit NotingWriter(Engine& engine) : mEngine(engine) {}
    ~NotingWriter() override { mEngine.released = true; }

    // The row's identity, which lies behind the columns, and each change.
    void Write(const BufferedRecordSet& set) override {
        if (mEngine.fails) throw DatabaseError("refused");
        std::string text = TextOf(set.Known(set.FieldCount()));
        for (int i = 0; i < set.FieldCount(); ++i) {
            const tsql::Datum* changed = set.Changed(i);
            if (changed == nullptr) continue;
            text += ' ' + set.Column(i).baseColumn + ' ' + TextOf(set.Known(i)) + "->" +
                    TextOf(*changed);
        }
        mEngine.written.push_back(text);
    }

private:
    Engine& mEngine;
};

class BufferedRecordSetTest : public testing::Test {
protected:
    // Two rows of cName, mSum, a computed column and the identity.
    std::unique_ptr<BufferedRecordSet> Open(bool changeable = true) {
        tsql::PackedRows rows;
        for (const auto& [name, sum, identity] :
             {std::tuple("one", "1.5000", 11), {"two", "2.0000", 12}}) {
            rows.BeginRow();
            rows.AppendText(name);
            rows.AppendText(sum);
            rows.AppendNull();
            rows.AppendInteger(identity);
        }
        auto columns = std::make_shared<BufferedRecordSet::Columns>();
        columns->push_back({"cName", {Kind::VarChar, 5}, "cName"});
        columns->push_back({"Total", {Kind::Money, 0}, "mSum"});
        columns->push_back({"", {Kind::Int, 0}, ""});
        return std::make_unique<BufferedRecordSet>(std::move(rows), columns, changeable,
                                                   std::make_unique<NotingWriter>(mEngine));
    }

    static std::string TextOfError(const std::function<void()>& action) {
        try {
            action();
        } catch (const DatabaseError& error) {
            return error.what();
        }
        return {};
    }

    Engine mEngine;
};

TEST_F(BufferedRecordSetTest, PassesOverItsRows) {
    const auto set = Open();
    EXPECT_EQ(set->RecordCount(), 2);
    EXPECT_EQ(set->FieldCount(), 3);
    EXPECT_EQ(set->Field("CNAME"), Value("one"));
    set->MoveNext();
    EXPECT_EQ(set->Field(0), Value("two"));
    EXPECT_EQ(set->Field("total"), Value(Money::FromInteger(2)));
    EXPECT_TRUE(set->Field(2).IsNull());
    set->MoveNext();
    set->MoveNext();
    EXPECT_TRUE(set->EndOfFile());
    EXPECT_EQ(TextOfError([&] { set->Field(0); }), "There is no current record.");
    set->MoveFirst();
    EXPECT_EQ(set->Field("Total"), Value(Money::FromText("1.5")));
}

TEST_F(BufferedRecordSetTest, KnowsOnlyTheColumnsThatAreSeen) {
    const auto set = Open();
    EXPECT_EQ(TextOfError([&] { set->Field(3); }), "Item 3 cannot be found in the record set.");
    EXPECT_EQ(TextOfError([&] { set->Field(-1); }), "Item -1 cannot be found in the record set.");
    EXPECT_EQ(TextOfError([&] { set->Field(""); }), "Item '' cannot be found in the record set.");
    EXPECT_EQ(TextOfError([&] { set->SetField("mSum", Value(1.0)); }),
              "Item 'mSum' cannot be found in the record set.");
}

TEST_F(BufferedRecordSetTest, GivesTheWriterWhatIsSetAndWhatIsKnown) {
    const auto set = Open();
    set->Update();
    EXPECT_THAT(mEngine.written, IsEmpty());
    set->SetField("cname", Value("eins"));
    EXPECT_EQ(set->Field("cName"), Value("eins"));
    set->Update();
    set->SetField("cName", Value("un"));
    set->SetField("Total", Value(std::int64_t{3}));
    set->Update();
    set->Update();
    EXPECT_EQ(set->Field("cName"), Value("un"));
    EXPECT_THAT(mEngine.written,
                ElementsAre("11 cName one->eins", "11 cName eins->un mSum 1.5000->3.0000"));
}

TEST_F(BufferedRecordSetTest, AFailedUpdateLeavesWhatIsSet) {
    const auto set = Open();
    set->SetField("cName", Value("eins"));
    mEngine.fails = true;
    EXPECT_THROW(set->Update(), DatabaseError);
    mEngine.fails = false;
    set->Update();
    EXPECT_THAT(mEngine.written, ElementsAre("11 cName one->eins"));
}

TEST_F(BufferedRecordSetTest, MovingOnDropsWhatIsSet) {
    const auto set = Open();
    set->SetField("cName", Value("eins"));
    set->MoveNext();
    set->SetField("cName", Value("zwei"));
    set->Update();
    set->MoveFirst();
    EXPECT_EQ(set->Field("cName"), Value("one"));
    EXPECT_THAT(mEngine.written, ElementsAre("12 cName two->zwei"));
}

TEST_F(BufferedRecordSetTest, RefusesWhatCannotBeStored) {
    const auto set = Open();
    EXPECT_THROW(set->SetField("cName", Value("sieben")), DatabaseError);
    EXPECT_THROW(set->SetField("Total", Value("x")), DatabaseError);
    set->Update();
    EXPECT_THAT(mEngine.written, IsEmpty());
    EXPECT_EQ(TextOfError([&] { Open(false)->SetField("cName", Value("a")); }),
              "The record set or the column 'cName' cannot be changed.");
}

TEST_F(BufferedRecordSetTest, AComputedColumnCannotBeSet) {
    auto columns = std::make_shared<BufferedRecordSet::Columns>();
    columns->push_back({"sum", {Kind::Int, 0}, ""});
    tsql::PackedRows rows;
    rows.BeginRow();
    rows.AppendInteger(1);
    BufferedRecordSet set(std::move(rows), columns, true, std::make_unique<NotingWriter>(mEngine));
    EXPECT_THROW(set.SetField("sum", Value(std::int64_t{2})), DatabaseError);
}

TEST_F(BufferedRecordSetTest, ClosingReleasesWhatIsHeldAndIsDoneOnce) {
    const auto set = Open();
    EXPECT_EQ(set->State(), platform::kStateOpen);
    EXPECT_FALSE(mEngine.released);
    set->Close();
    EXPECT_TRUE(mEngine.released);
    EXPECT_EQ(set->State(), 0);
    const std::string closed = "Operation is not allowed when the record set is closed.";
    EXPECT_EQ(TextOfError([&] { set->Close(); }), closed);
    EXPECT_EQ(TextOfError([&] { set->FieldCount(); }), closed);
    EXPECT_EQ(TextOfError([&] { set->Field("cName"); }), closed);
    EXPECT_EQ(TextOfError([&] { set->MoveFirst(); }), closed);
}

TEST_F(BufferedRecordSetTest, ItsEndReleasesWhatIsHeld) {
    Open();
    EXPECT_TRUE(mEngine.released);
}

TEST_F(BufferedRecordSetTest, MayHaveNoColumnsAtAll) {
    BufferedRecordSet set({}, nullptr, false, std::make_unique<NotingWriter>(mEngine));
    EXPECT_EQ(set.FieldCount(), 0);
    EXPECT_EQ(set.RecordCount(), 0);
    EXPECT_TRUE(set.EndOfFile());
}

}  // namespace
}  // namespace kelvane::database

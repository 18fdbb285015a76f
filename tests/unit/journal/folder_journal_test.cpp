#include "adapters/journal/folder_journal.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <functional>
#include <nlohmann/json.hpp>
#include <set>
#include <thread>

#include "adapters/journal/batch_text.h"
#include "adapters/journal/line_chain.h"
#include "tests/unit/host/temporary_folder.h"
#include "tests/unit/journal/sample_batch.h"
#include "tests/unit/output/failing_disk.h"

namespace kelvane::journal_test {

using host_test::ReadText;
using host_test::TemporaryFolder;
using host_test::WriteText;
using journal::FolderJournal;
using output_test::FailingDisk;
using platform::Batch;
using platform::BatchOutcome;
using platform::JournalFailed;

namespace {

namespace fs = std::filesystem;

class FolderJournalTest : public testing::Test {
protected:
    // What the journal says when it fails; its paths without the test's folder.
    std::string Failure(const std::function<void()>& work) const {
        try {
            work();
        } catch (const JournalFailed& failed) {
            std::string text = failed.what();
            const std::string base = mFolder.Path().string() + '/';
            for (auto at = text.find(base); at != std::string::npos; at = text.find(base)) {
                text.erase(at, base.size());
            }
            return text;
        }
        return "none";
    }

    // The file of a batch that was begun and, when there is one, ended.
    std::string Written(std::optional<BatchOutcome> outcome) {
        FolderJournal journal(mPlace);
        const int number = journal.Begin(SampleIntent());
        if (outcome) journal.End(number, *outcome);
        return ReadText(mPlace / (std::to_string(number) + ".jsonl"));
    }

    // Puts another file in batch 1's place. Writing over the old one would wait for the disk.
    void Replace(const std::string& text) const {
        fs::remove(mPlace / "1.jsonl");
        WriteText(mPlace / "1.jsonl", text);
    }

    TemporaryFolder mFolder;
    fs::path mPlace = mFolder / "a.kelvane.batches";
};

TEST_F(FolderJournalTest, ABatchIsReadAsItWasWritten) {
    FolderJournal journal(mPlace);
    EXPECT_TRUE(journal.Batches().empty());
    EXPECT_FALSE(fs::exists(mPlace));
    const int number = journal.Begin(SampleIntent());
    EXPECT_EQ(number, 1);
    journal.End(number, BatchOutcome::Written);
    const Batch read = FolderJournal(mPlace).Read(1);
    ExpectSame(read.intent, SampleIntent());
    EXPECT_EQ(read.outcome, BatchOutcome::Written);
    EXPECT_EQ(read.problem, "");
}

TEST_F(FolderJournalTest, EveryByteOfATextIsKept) {
    platform::BatchIntent intent = SampleIntent();
    intent.kind = "undo";
    intent.undoes = 12;
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    intent.file = "caf\xC3";
    intent.user = std::string("a\0b", 3);
    intent.changes = {{.identity = 1,
                       .before = {},
                       .after = platform::RowImage{.fields = {{"all", all},
                                                              {"emoji", "😀\u2028"},
                                                              {"marks", "\"\\\n\r\t\x7f"},
                                                              {"\xFF", ""},
                                                              {"twice", "1"},
                                                              {"twice", "2"}},
                                                   .lines = {}}}};
    FolderJournal(mPlace).Begin(intent);
    ExpectSame(FolderJournal(mPlace).Read(1).intent, intent);
}

TEST_F(FolderJournalTest, AListHasTheNumbersOfChangesAndNoChanges) {
    Written(BatchOutcome::Written);
    Written(BatchOutcome::NotWritten);
    WriteText(mPlace / "notes.txt", "");
    WriteText(mPlace / "07.jsonl", "");
    WriteText(mPlace / "99999999999.jsonl", "");
    for (int more = 3; more <= 11; ++more) Written(BatchOutcome::InDoubt);
    const auto batches = FolderJournal(mPlace).Batches();
    ASSERT_EQ(batches.size(), 11U);
    for (std::size_t at = 0; at < batches.size(); ++at) {
        const Batch& batch = batches[at];
        EXPECT_EQ(batch.number, static_cast<int>(at) + 1);
        EXPECT_EQ(batch.intent.user, "张三");
        EXPECT_TRUE(batch.intent.changes.empty());
        EXPECT_EQ(batch.counts, (platform::BatchCounts{.created = 1, .changed = 1, .deleted = 1}));
        EXPECT_EQ(batch.problem, "");
    }
    EXPECT_EQ(batches[1].outcome, BatchOutcome::NotWritten);
    EXPECT_EQ(batches[10].outcome, BatchOutcome::InDoubt);
}

TEST_F(FolderJournalTest, ABatchRunsUntilItsJournalEndsIt) {
    FolderJournal other(mPlace);
    auto journal = std::make_optional<FolderJournal>(mPlace);
    journal->Begin(SampleIntent());
    EXPECT_TRUE(other.Read(1).running);
    EXPECT_FALSE(other.Read(1).outcome);
    const std::string busy = "批次日志 a.kelvane.batches/1.jsonl 正被其他程序使用（";
    EXPECT_TRUE(Failure([&] { other.End(1, BatchOutcome::Written); }).starts_with(busy));
    EXPECT_TRUE(Failure([&] { other.Withdraw(1); }).starts_with(busy));
    journal->Begin(SampleIntent());
    journal->End(1, BatchOutcome::Written);
    EXPECT_FALSE(other.Read(1).running);
    journal.reset();
    EXPECT_FALSE(other.Read(2).running);
    EXPECT_FALSE(other.Read(2).outcome);
    EXPECT_EQ(other.Read(2).problem, "");
}

TEST_F(FolderJournalTest, WhatAnotherProgramLeftIsEndedOnce) {
    Written({});
    FolderJournal journal(mPlace);
    journal.End(1, BatchOutcome::InDoubt);
    EXPECT_EQ(journal.Read(1).outcome, BatchOutcome::InDoubt);
    journal.End(1, BatchOutcome::InDoubt);
    journal.End(1, BatchOutcome::NotWritten);
    journal.End(1, BatchOutcome::NotWritten);
    EXPECT_EQ(journal.Read(1).outcome, BatchOutcome::NotWritten);
    EXPECT_EQ(Failure([&] { journal.End(1, BatchOutcome::Written); }),
              "批次日志 a.kelvane.batches/1.jsonl 已经有另一个结果");
    EXPECT_EQ(journal.Read(1).problem, "");
    EXPECT_EQ(Failure([&] { journal.End(2, BatchOutcome::Written); }),
              "批次日志 a.kelvane.batches/2.jsonl 不存在（No such file or directory）");
    EXPECT_EQ(Failure([&] { journal.Read(2); }),
              "批次日志 a.kelvane.batches/2.jsonl 不存在（No such file or directory）");
}

TEST_F(FolderJournalTest, ABatchThatWroteNothingIsWithdrawn) {
    FolderJournal journal(mPlace);
    journal.Withdraw(journal.Begin(SampleIntent()));
    EXPECT_TRUE(journal.Batches().empty());
    Written({});
    journal.Withdraw(1);
    EXPECT_TRUE(journal.Batches().empty());
    Written(BatchOutcome::Written);
    EXPECT_EQ(Failure([&] { journal.Withdraw(1); }),
              "批次日志 a.kelvane.batches/1.jsonl 已经写入账套");
    EXPECT_EQ(journal.Batches().size(), 1U);
}

TEST_F(FolderJournalTest, TwoThatBeginAtOnceGetDifferentNumbers) {
    constexpr int kWriters = 4;
    constexpr int kEach = 25;
    std::vector<std::vector<int>> numbers(kWriters);
    std::vector<std::thread> writers;
    for (auto& own : numbers) {
        writers.emplace_back([&] {
            FolderJournal journal(mPlace);
            for (int count = 0; count < kEach; ++count) {
                own.push_back(journal.Begin(SampleIntent()));
                journal.End(own.back(), BatchOutcome::Written);
            }
        });
    }
    for (auto& writer : writers) writer.join();
    std::set<int> all;
    for (const auto& own : numbers) all.insert(own.begin(), own.end());
    EXPECT_EQ(all.size(), static_cast<std::size_t>(kWriters * kEach));
    const auto batches = FolderJournal(mPlace).Batches();
    EXPECT_EQ(batches.size(), all.size());
    for (const Batch& batch : batches) {
        EXPECT_EQ(batch.outcome, BatchOutcome::Written) << batch.number << batch.problem;
    }
}

TEST_F(FolderJournalTest, AFolderAndItsFilesAreTheirOwnersAlone) {
    Written(BatchOutcome::Written);
    struct stat found {};
    ASSERT_EQ(stat(mPlace.c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777U, 0700U);
    ASSERT_EQ(stat((mPlace / "1.jsonl").c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777U, 0600U);
}

TEST_F(FolderJournalTest, WhatIsInTheWayOfTheFolderIsNamed) {
    WriteText(mPlace, "");
    const std::string inTheWay = "批次日志 a.kelvane.batches 不是文件夹（";
    FolderJournal journal(mPlace);
    EXPECT_TRUE(Failure([&] { journal.Begin(SampleIntent()); }).starts_with(inTheWay));
    EXPECT_TRUE(Failure([&] { journal.Batches(); }).starts_with(inTheWay));
}

TEST_F(FolderJournalTest, AFolderInAFilesPlaceIsNoBatch) {
    fs::create_directories(mPlace / "4.jsonl");
    FolderJournal journal(mPlace);
    EXPECT_EQ(journal.Begin(SampleIntent()), 5);
    EXPECT_EQ(journal.Batches().front().problem, "不是普通文件");
}

TEST_F(FolderJournalTest, NumbersCanBeUsedUp) {
    fs::create_directory(mPlace);
    WriteText(mPlace / "2147483647.jsonl", "");
    EXPECT_EQ(Failure([&] { FolderJournal(mPlace).Begin(SampleIntent()); }),
              "批次日志 a.kelvane.batches 的编号已经用完");
}

constexpr const char* kFullDisk = "所在的磁盘已满（No space left on device）";

TEST_F(FolderJournalTest, NothingIsLeftOfAnIntentThatFails) {
    platform::BatchIntent large = SampleIntent();
    large.changes.resize(5000, large.changes.front());
    for (const auto& [failing, before] : {std::pair{FailingDisk::Call::Create, 0},
                                          {FailingDisk::Call::Write, 0},
                                          {FailingDisk::Call::Write, 1},
                                          {FailingDisk::Call::Sync, 0},
                                          {FailingDisk::Call::SyncFolder, 0}}) {
        FailingDisk disk(failing, before);
        FolderJournal journal(mPlace, disk);
        EXPECT_EQ(Failure([&] { journal.Begin(large); }),
                  std::string("批次日志 a.kelvane.batches/1.jsonl ") + kFullDisk)
            << static_cast<int>(failing);
        EXPECT_TRUE(fs::is_empty(mPlace)) << static_cast<int>(failing);
    }
}

TEST_F(FolderJournalTest, AFolderThatCannotBeMadeIsNamed) {
    FailingDisk disk(FailingDisk::Call::MakeFolder);
    FolderJournal journal(mPlace, disk);
    EXPECT_EQ(Failure([&] { journal.Begin(SampleIntent()); }),
              std::string("批次日志 a.kelvane.batches ") + kFullDisk);
    EXPECT_FALSE(fs::exists(mPlace));
}

TEST_F(FolderJournalTest, AnOutcomeThatFailsLeavesTheBatchUnfinished) {
    for (const auto failing : {FailingDisk::Call::Write, FailingDisk::Call::Sync}) {
        FailingDisk disk(failing, 1);  // the intent can still be written
        FolderJournal journal(mPlace, disk);
        const int number = journal.Begin(SampleIntent());
        const std::string file = "批次日志 a.kelvane.batches/" + std::to_string(number) + ".jsonl ";
        EXPECT_EQ(Failure([&] { journal.End(number, BatchOutcome::Written); }), file + kFullDisk);
        EXPECT_EQ(journal.Read(number).problem, "");
        EXPECT_FALSE(journal.Read(number).running);
        FolderJournal(mPlace).End(number, BatchOutcome::Written);
        EXPECT_EQ(journal.Read(number).outcome, BatchOutcome::Written);
        for (const auto later : {FailingDisk::Call::Reopen, FailingDisk::Call::CutOff}) {
            Written({});
            FailingDisk second(later);
            const int next = static_cast<int>(journal.Batches().size());
            EXPECT_TRUE(Failure([&] {
                            FolderJournal(mPlace, second).End(next, BatchOutcome::Written);
                        }).ends_with(kFullDisk));
            EXPECT_FALSE(journal.Read(next).outcome);
        }
    }
}

TEST_F(FolderJournalTest, AnOutcomeThatWasCutOffIsWrittenAnew) {
    const std::string intent = Written({});
    FolderJournal journal(mPlace);
    journal.End(1, BatchOutcome::Written);
    const std::string whole = ReadText(mPlace / "1.jsonl");
    for (std::size_t length = intent.size(); length < whole.size(); ++length) {
        Replace(whole.substr(0, length));
        const Batch torn = journal.Read(1);
        EXPECT_FALSE(torn.outcome) << length;
        EXPECT_EQ(torn.problem, "") << length;
        ExpectSame(torn.intent, SampleIntent());
        journal.End(1, BatchOutcome::Written);
        EXPECT_EQ(ReadText(mPlace / "1.jsonl"), whole) << length;
    }
}

TEST_F(FolderJournalTest, AnIntentThatWasCutOffNeverBegan) {
    const std::string intent = Written({});
    FolderJournal journal(mPlace);
    for (std::size_t length = 0; length < intent.size(); ++length) {
        Replace(intent.substr(0, length));
        const Batch torn = journal.Read(1);
        EXPECT_TRUE(torn.neverBegun) << length;
        EXPECT_TRUE(torn.problem.starts_with("没有写完，断在第 ")) << length << torn.problem;
        EXPECT_FALSE(torn.outcome) << length;
        EXPECT_EQ(Failure([&] { journal.End(1, BatchOutcome::Written); }),
                  "批次日志 a.kelvane.batches/1.jsonl " + torn.problem);
    }
    journal.Withdraw(1);
    EXPECT_TRUE(journal.Batches().empty());
}

// Whatever became of a byte, nothing else is read than was written.
TEST_F(FolderJournalTest, DamageOfAnyByteIsFound) {
    for (const auto& outcome :
         {std::optional<BatchOutcome>(), std::optional(BatchOutcome::Written)}) {
        fs::remove_all(mPlace);
        const std::string whole = Written(outcome);
        FolderJournal journal(mPlace);
        for (std::size_t at = 0; at < whole.size(); ++at) {
            for (const char flipped : {'\x01', '\x20', '\x80'}) {
                std::string damaged = whole;
                damaged[at] = static_cast<char>(damaged[at] ^ flipped);
                Replace(damaged);
                const Batch read = journal.Read(1);
                EXPECT_NE(read.problem, "") << at;
                EXPECT_EQ(journal.Batches().front().problem, read.problem) << at;
                EXPECT_FALSE(read.neverBegun) << at;
                EXPECT_FALSE(read.outcome) << at;
            }
            Replace(whole.substr(0, at) + whole.substr(at + 1));
            const Batch shorter = journal.Read(1);
            const bool wasLast = at + 1 == whole.size();
            EXPECT_EQ(shorter.problem.empty(), wasLast && outcome.has_value()) << at;
            EXPECT_FALSE(shorter.outcome) << at;
        }
    }
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1) {
        lines.push_back(text.substr(at, text.find('\n', at) + 1 - at));
    }
    return lines;
}

TEST_F(FolderJournalTest, ALineThatIsMissingStrangeOrTooMuchIsNamed) {
    const auto lines = LinesOf(Written(BatchOutcome::Written));
    const auto others = LinesOf(Written(BatchOutcome::Written));
    ASSERT_EQ(lines.size(), 6U);
    FolderJournal journal(mPlace);
    const auto problem = [&](const std::vector<std::string>& changed) {
        std::string text;
        for (const auto& line : changed) text += line;
        Replace(text);
        return journal.Read(1).problem;
    };
    EXPECT_EQ(problem(lines), "");
    auto changed = lines;
    changed.erase(changed.begin() + 2);
    EXPECT_EQ(problem(changed), "第 3 行不在其位：这是第 4 行");
    changed = lines;
    changed[3] = others[3];
    EXPECT_EQ(problem(changed), "第 4 行是第 2 批的");
    changed = lines;
    changed.push_back(lines.back());
    EXPECT_EQ(problem(changed), "第 7 行在结果之后，不该有");
    changed = lines;
    changed[2].replace(changed[2].find("2.00"), 4, "2.01");
    EXPECT_EQ(problem(changed), "第 3 行已损坏（校验值不符）");
    changed[2] = "{}\n";
    EXPECT_EQ(problem(changed), "第 3 行已损坏（没有校验值）");
    // The same batch of another account.
    fs::remove_all(mPlace);
    platform::BatchIntent other = SampleIntent();
    other.user = "李四";
    FolderJournal(mPlace).Begin(other);
    changed = LinesOf(ReadText(mPlace / "1.jsonl"));
    changed[1] = lines[1];
    EXPECT_EQ(problem(changed), "第 2 行与上一行不相接");
    EXPECT_EQ(Failure([&] { journal.End(1, BatchOutcome::Written); }),
              "批次日志 a.kelvane.batches/1.jsonl 第 2 行与上一行不相接");
    EXPECT_EQ(Failure([&] { journal.Withdraw(1); }),
              "批次日志 a.kelvane.batches/1.jsonl 第 2 行与上一行不相接");
}

// Lines that are sealed, but say what none of this program says.
TEST_F(FolderJournalTest, WhatASealedLineSaysIsChecked) {
    FolderJournal journal(mPlace);
    const auto problem = [&](const std::vector<journal::Json>& contents) {
        journal::LineChain chain(1);
        std::string text;
        for (const auto& content : contents) text += chain.Seal(content);
        Replace(text);
        const std::string found = journal.Read(1).problem;
        EXPECT_EQ(journal.Batches().front().problem, found);
        return found;
    };
    fs::create_directory(mPlace);
    const platform::BatchIntent intent = SampleIntent();
    const auto head = journal::HeadLine(intent);
    const auto change = journal::Json::parse(journal::ChangeText(intent.changes.front()));
    const auto one = journal::CountsLine({.created = 1, .changed = 0, .deleted = 0});
    const auto outcome = journal::OutcomeLine(BatchOutcome::Written);
    EXPECT_EQ(problem({head, change, one, outcome}), "");
    EXPECT_EQ(problem({change, one}), "第 1 行的内容看不懂");
    EXPECT_EQ(problem({head, head}), "第 2 行的内容看不懂");
    EXPECT_EQ(problem({head, change, change, one}), "第 4 行与改动的数目不符");
    EXPECT_EQ(problem({head, one}), "第 2 行与改动的数目不符");
    EXPECT_EQ(problem({head, change, one, change}), "第 4 行的内容看不懂");
    EXPECT_EQ(problem({head, change, one, {{"outcome", "perhaps"}}}), "第 4 行的内容看不懂");
    auto later = head;
    later["intent"]["version"] = 2;
    EXPECT_EQ(problem({later, change, one}), "由更新的版本写成");
}

TEST_F(FolderJournalTest, ALineThatNeverEndsIsNotReadWhole) {
    fs::create_directory(mPlace);
    Replace("");
    fs::resize_file(mPlace / "1.jsonl", 2 * journal::kMaxLineLength);
    const Batch read = FolderJournal(mPlace).Read(1);
    EXPECT_EQ(read.problem, "第 1 行太长");
    EXPECT_FALSE(read.neverBegun);
}

}  // namespace
}  // namespace kelvane::journal_test

// An account into which a file is imported, and an import that is taken back, with the journal in a
// folder. Every call of the database services and of the disk can fail.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "adapters/journal/folder_journal.h"
#include "entries/bulk/undo.h"
#include "entries/check/check.h"
#include "tests/database/bulk_fixture.h"
#include "tests/faults/counting_disk.h"
#include "tests/faults/failing_connection.h"

namespace kelvane::faults {

// What was told: that all is written, that nothing is, or that nobody knows.
enum class Told { Written, NotWritten, InDoubt };

class BatchWorld : public entries::BulkFixture {
public:
    BatchWorld() {
        SetUp();
        data::gConn = std::make_shared<FailingConnection>(Connect(), calls);
        mEnvironmentThatFails.startPeriod = mEnvironment.startPeriod;
        data::gEnv = &mEnvironmentThatFails;
        OpenJournal();
        // One new entry with a line, one changed and one deleted.
        AddLine(Add("新", "", "机械费"), "J01", "4", "2");
        AddStored(1).texts[entries::kDigestColumn] = "改";
        AddStored(2).operation = "删除";
    }
    ~BatchWorld() override {
        calls.Heal();
        TearDown();
        std::error_code ignored;
        std::filesystem::remove_all(mFolder, ignored);
    }
    void TestBody() override {}

    // As the next start of the program finds it.
    void OpenJournal() {
        mJournal = std::make_unique<journal::FolderJournal>(mFolder, mDisk);
        request.journal = mJournal.get();
    }

    Told ImportFile() {
        return Tell([&] {
            return static_cast<entries::BatchResult>(RunImport(file, masterData, request));
        });
    }
    Told UndoImport() {
        entries::UndoRequest undo;
        undo.head.user = "demo";
        undo.journal = mJournal.get();
        undo.batch = 1;
        return Tell([&] { return static_cast<entries::BatchResult>(UndoBatch(masterData, undo)); });
    }

    // Entries and lines as another operator finds them.
    std::string Content() {
        std::string content = Stored();
        const auto lines = mOther->OpenRecordSet(platform::StatementText(
            "select cCodeMx,mQC,iEleVid from PM_ItemQCsub order by iEleVid,cCodeMx"));
        for (; !lines->EndOfFile(); lines->MoveNext()) {
            content += lines->Field(0).ToText() + " " + lines->Field(1).ToText() + " ";
        }
        return content;
    }
    std::string Findings() const {
        std::string findings;
        for (const entries::CheckFinding& each : entries::CheckAccount().findings) {
            findings += std::to_string(each.identity) + " " + each.finding.text + "\n";
        }
        return findings;
    }
    // How many batches of `kind` are written, by the journal and the account together. None may be
    // left that nobody can tell of.
    int WrittenBatches(const std::string& kind) {
        int written = 0;
        for (const platform::Batch& batch : entries::DecidedBatches(*mJournal, false)) {
            EXPECT_TRUE(batch.problem.empty() || batch.neverBegun) << batch.problem;
            EXPECT_TRUE(batch.outcome || batch.neverBegun) << batch.number;
            const bool isWritten = batch.outcome == platform::BatchOutcome::Written;
            written += static_cast<int>(isWritten && batch.intent.kind == kind);
        }
        return written;
    }

    using BulkFixture::Connect;

    std::string told;  // the last failure's text
    FailingCalls calls;
    FailingCalls diskCalls;

private:
    template <typename Work>
    Told Tell(const Work& work) {
        told.clear();
        try {
            const entries::BatchResult ended = work();
            for (const auto& each : ended.plan.findings) told += each.finding.text;
            for (const auto& note : ended.notes) told += note;
            return ended.batch ? Told::Written : Told::NotWritten;
        } catch (const platform::CommitInDoubt& failed) {
            told = failed.what();
            return Told::InDoubt;
        } catch (const std::exception& failed) {
            told = failed.what();
            return Told::NotWritten;
        }
    }

    static std::filesystem::path FreshFolder() {
        auto folder = std::filesystem::temp_directory_path() /
                      ("kelvane_" + std::to_string(getpid()) + "_batches");
        std::filesystem::remove_all(folder);
        return folder;
    }

    std::filesystem::path mFolder = FreshFolder();
    CountingDisk mDisk{diskCalls};
    std::unique_ptr<journal::FolderJournal> mJournal;
    platform::ConnectionDataAccess mAccess{std::make_shared<FailingConnection>(Connect(), calls)};
    support::TestEnvironment mEnvironmentThatFails{mAccess};
};

}  // namespace kelvane::faults

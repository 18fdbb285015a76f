// Importing from tables in memory: files by their names, whatever is copied, and one journal.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/table_import.h"
#include "tests/support/memory_journal.h"

namespace kelvane::support {

class MemoryTableImport : public platform::TableImport {
public:
    using MakeTable = std::function<std::unique_ptr<platform::TableReader>()>;

    std::map<std::string, MakeTable> files;
    MakeTable copied;
    std::optional<std::string> chosen;  // in the file dialog
    MemoryJournal journal;
    bool journalIsMissing = false;
    std::string map;                    // the one that is kept; empty: none
    std::vector<std::string> progress;  // the titles that were shown
    bool goesOn = true;                 // what the operator wants then

    std::optional<std::string> ChooseFile(const platform::FileQuestion& /*question*/) override {
        return chosen;
    }
    std::unique_ptr<platform::TableReader> OpenFile(const std::string& path) override {
        const auto file = files.find(path);
        if (file == files.end()) throw platform::TableRefused(path + "：不存在");
        return file->second();
    }
    std::unique_ptr<platform::TableReader> OpenCopied(const std::string& /*text*/) override {
        return copied();
    }
    std::string HashOfFile(const std::string& path) override { return "file " + path; }
    std::string HashOfText(const std::string& text) override { return "text " + text; }
    std::unique_ptr<platform::BatchJournal> OpenJournal() override {
        if (journalIsMissing) throw platform::JournalFailed("日志不能打开");
        return std::make_unique<Opened>(journal);
    }
    std::string MapFile() override { return map; }
    std::unique_ptr<platform::Progress> StartProgress(const std::string& title) override {
        progress.push_back(title);
        return std::make_unique<Shown>(goesOn);
    }

private:
    class Shown : public platform::Progress {
    public:
        explicit Shown(bool goesOn) : mGoesOn(goesOn) {}
        bool Show(std::size_t /*done*/, std::size_t /*total*/) override { return mGoesOn; }

    private:
        bool mGoesOn;
    };

    class Opened : public platform::BatchJournal {
    public:
        explicit Opened(MemoryJournal& journal) : mJournal(journal) {}
        int Begin(const platform::BatchIntent& intent) override { return mJournal.Begin(intent); }
        void End(int number, platform::BatchOutcome outcome) override {
            mJournal.End(number, outcome);
        }
        void Withdraw(int number) override { mJournal.Withdraw(number); }
        std::vector<platform::Batch> Batches() override { return mJournal.Batches(); }
        platform::Batch Read(int number) override { return mJournal.Read(number); }

    private:
        MemoryJournal& mJournal;
    };
};

}  // namespace kelvane::support

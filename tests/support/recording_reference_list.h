// A pick-list service that shows nothing: it keeps what it is handed and answers as it was told.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/reference_list.h"

namespace kelvane::support {

// What the services of one test were handed, and what they answer.
struct ReferenceListLog {
    // One line a call: operation, user, statement or name, titles, widths, options, each in
    // brackets.
    std::vector<std::string> calls;
    // What the last list was to open on.
    std::string present;
    // The chosen row; nothing, or a null, when nothing is chosen. May throw.
    std::function<std::unique_ptr<platform::RecordSet>()> choose;
    int created = 0;
};

class RecordingReferenceList : public platform::ReferenceList {
public:
    explicit RecordingReferenceList(ReferenceListLog& log) : mLog(log) { ++mLog.created; }

    void OpenOn(std::string_view present) override { mLog.present = present; }

    std::unique_ptr<platform::RecordSet> ListByKey(
        platform::HostLogin& login, const platform::StatementText& statement,
        std::string_view referenceKey, const platform::ReferenceListOptions& options) override {
        Note({"by key", login.UserId(), statement.Checked(), std::string(referenceKey),
              OptionsText(options)});
        return Answer();
    }
    std::unique_ptr<platform::RecordSet> ListByStatement(
        platform::HostLogin& login, const platform::StatementText& statement,
        std::string_view titles, std::string_view widths,
        const platform::ReferenceListOptions& options) override {
        Note({"by statement", login.UserId(), statement.Checked(), std::string(titles),
              std::string(widths), OptionsText(options)});
        return Answer();
    }
    std::unique_ptr<platform::RecordSet> ListByName(
        platform::HostLogin& login, std::string_view name,
        const platform::ReferenceListOptions& options) override {
        Note({"by name", login.UserId(), std::string(name), OptionsText(options)});
        return Answer();
    }
    std::unique_ptr<platform::RecordSet> ListOnConnection(
        std::shared_ptr<platform::Connection>& /*connection*/,
        const platform::StatementText& statement, std::string_view titles, std::string_view widths,
        bool& chosen) override {
        Note({"on connection", statement.Checked(), std::string(titles), std::string(widths)});
        auto row = Answer();
        chosen = row != nullptr;
        return row;
    }

private:
    static std::string OptionsText(const platform::ReferenceListOptions& options) {
        return std::to_string(options.first) + ',' + std::to_string(options.second) + ',' +
               std::to_string(options.third);
    }
    void Note(const std::vector<std::string>& parts) {
        std::string line;
        for (const std::string& part : parts) line += '[' + part + ']';
        mLog.calls.push_back(line);
    }
    std::unique_ptr<platform::RecordSet> Answer() { return mLog.choose ? mLog.choose() : nullptr; }

    ReferenceListLog& mLog;
};

}  // namespace kelvane::support

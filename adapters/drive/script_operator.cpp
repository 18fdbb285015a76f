#include "adapters/drive/script_operator.h"

#include <array>

#include "controls/pick_window.h"

namespace kelvane::drive {

using platform::Message;
using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

namespace {

struct IconName {
    MessageIcon icon;
    const char* name;
};

constexpr std::array kIconNames{
    IconName{MessageIcon::None, "none"},
    IconName{MessageIcon::Information, "information"},
    IconName{MessageIcon::Exclamation, "exclamation"},
    IconName{MessageIcon::Question, "question"},
};

const char* NameOf(MessageIcon icon) {
    for (const IconName& each : kIconNames) {
        if (each.icon == icon) return each.name;
    }
    return "unknown";
}

template <typename T>
std::optional<T> TakeFirst(std::deque<T>& queue) {
    if (queue.empty()) return std::nullopt;
    T first = std::move(queue.front());
    queue.pop_front();
    return first;
}

}  // namespace

int ScriptOperator::Run() {
    while (!mFailed) {
        const auto command = NextCommand();
        if (!command) break;
        Execute(*command, nullptr);
    }
    return mFailed ? 1 : 0;
}

bool ScriptOperator::Act(controls::Form& topmost) {
    if (mFailed) return false;
    if (auto* list = topmost.AsPickWindow()) {
        list->Choose(Pick(list->Titles(), list->ShownRows()));
        return !mFailed;
    }
    const auto command = NextCommand();
    if (!command) return false;
    Execute(*command, &topmost);
    return !mFailed;
}

std::optional<Command> ScriptOperator::NextCommand() {
    static constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    for (std::string text; std::getline(mScript, text);) {
        ++mLineNumber;
        if (mLineNumber == 1 && text.starts_with(kByteOrderMark)) {
            text.erase(0, kByteOrderMark.size());
        }
        while (!text.empty() && (text.back() == '\r' || text.back() == ' ')) text.pop_back();
        try {
            auto command = ParseCommand(text);
            if (!command) continue;
            mTranscript.Line("> " + text);
            return command;
        } catch (const ScriptError& error) {
            mTranscript.Line("> " + text);
            Fail("line " + std::to_string(mLineNumber) + ": " + error.what());
            return std::nullopt;
        }
    }
    return std::nullopt;
}

void ScriptOperator::Execute(const Command& command, controls::Form* topmost) {
    const int line = mLineNumber;
    try {
        if (RunAnywhere(command)) return;
        if (topmost != nullptr) {
            RunInWindow(command, *topmost,
                        {mTranscript, [this](std::size_t rows) { return Choose(rows); },
                         mHost.sendKeys, mHost.clipboard, mHost.setClipboard});
        } else {
            RunHost(command);
        }
    } catch (const std::exception& error) {
        Fail("line " + std::to_string(line) + ": " + error.what());
    }
}

// The commands that only prepare what the operator will do, and those about statements.
bool ScriptOperator::RunAnywhere(const Command& command) {
    switch (command.verb) {
        case Verb::Pick: {
            const bool none = command.arguments[0] == "none";
            const int row = none ? 0 : ParseNumber(command.arguments[0]);
            if (!none && row == 0) throw ScriptError("rows of a list are numbered from 1");
            mPicks.push_back(row);
            return true;
        }
        case Verb::Answer:
            mAnswers.push_back(ParseYesNo(command.arguments[0]));
            return true;
        case Verb::File:
            mFiles.push_back(command.arguments[0]);
            return true;
        case Verb::Skip:
            if (command.arguments[0] != "sql") {
                throw ScriptError("cannot skip \"" + command.arguments[0] + "\"");
            }
            if (mHost.statements != nullptr) mHost.statements->Take();
            return true;
        case Verb::Print:
            if (command.arguments[0] != "sql") return false;
            if (mHost.statements == nullptr) return true;
            for (const std::string& statement : mHost.statements->Take()) {
                mTranscript.Line(statement);
            }
            return true;
        default:
            return false;
    }
}

void ScriptOperator::RunHost(const Command& command) {
    if (command.verb != Verb::Init && command.verb != Verb::Show) {
        throw ScriptError("no window is open");
    }
    const InitOptions options =
        command.verb == Verb::Init ? ParseInitOptions(command.arguments) : InitOptions();
    try {
        if (command.verb == Verb::Init) {
            mHost.init(options);
        } else {
            mHost.show();
        }
    } catch (const std::exception& error) {
        Fail(error.what());
    }
}

void ScriptOperator::Refused(int row, int column) {
    mTranscript.Line("refused " + std::to_string(row) + " " + std::to_string(column));
}

// The folder is the machine's; both kinds of separator occur, whatever the machine.
void ScriptOperator::HelpShown(const std::string& path) {
    mTranscript.Line("help " + path.substr(path.find_last_of("/\\") + 1));
}

MessageAnswer ScriptOperator::Answer(const Message& message) {
    std::string line = "[" + message.caption + "|" + NameOf(message.icon) + "] " + message.text;
    MessageAnswer answer = MessageAnswer::Ok;
    if (message.buttons == MessageButtons::YesNo) {
        const bool yes = TakeFirst(mAnswers).value_or(message.preselected == MessageAnswer::Yes);
        answer = yes ? MessageAnswer::Yes : MessageAnswer::No;
        line += yes ? " -> yes" : " -> no";
    }
    mTranscript.Line(line);
    return answer;
}

std::optional<std::size_t> ScriptOperator::Pick(const std::vector<std::string>& titles,
                                                const std::vector<std::vector<std::string>>& rows) {
    mTranscript.Line("list: " + Join(titles, ','));
    for (const auto& row : rows) mTranscript.Line(Join(row, '|'));
    return Choose(rows.size());
}

std::optional<std::size_t> ScriptOperator::Choose(std::size_t rows) {
    const auto row = static_cast<std::size_t>(TakeFirst(mPicks).value_or(0));
    if (row == 0) return std::nullopt;
    if (row <= rows) return row - 1;
    Fail("line " + std::to_string(mLineNumber) + ": the list has no row " + std::to_string(row));
    return std::nullopt;
}

std::optional<std::string> ScriptOperator::ChooseFile() {
    auto file = TakeFirst(mFiles);
    if (file && *file == "none") file.reset();
    return file;
}

void ScriptOperator::Fail(const std::string& text) {
    mTranscript.Line("error: " + text);
    mFailed = true;
}

}  // namespace kelvane::drive

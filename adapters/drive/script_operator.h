// ScriptOperator: the operator that follows a script. It reads a line when the windows ask for the
// next thing to do, never ahead, so that a program can drive it through pipes.
#pragma once

#include <deque>
#include <functional>
#include <istream>
#include <ostream>

#include "adapters/drive/operator.h"
#include "adapters/drive/script.h"
#include "adapters/drive/statement_log.h"
#include "adapters/drive/transcript.h"
#include "adapters/drive/window_commands.h"

namespace kelvane::drive {

// What a script needs of the program that runs it.
struct ScriptHost {
    // Logs in as "init" says, and opens the component's window. Both may throw.
    std::function<void(const InitOptions&)> init;
    std::function<void()> show;
    // Sends keys to the windows the script acts on (their SendKeys).
    std::function<void(std::string_view keys)> sendKeys;
    // The statements for "print sql"; null when none are noted.
    StatementLog* statements = nullptr;
    // The text on these windows' clipboard (their ClipboardText).
    std::function<std::string()> clipboard = {};
    std::function<void(std::string_view text)> setClipboard = {};
};

class ScriptOperator : public Operator {
public:
    // Both streams must outlive the operator.
    ScriptOperator(std::istream& script, std::ostream& transcript)
        : mScript(script), mTranscript(transcript) {}

    void SetHost(ScriptHost host) { mHost = std::move(host); }

    // Follows the script to its end or its first error. Returns the program's exit status: 0, or 1
    // when the script failed.
    int Run();

    bool Act(controls::Form& topmost) override;
    void Opened(const std::string& window) override { mTranscript.Line("open " + window); }
    void Closed(const std::string& window) override { mTranscript.Line("close " + window); }
    void Focused(const std::string& control) override { mTranscript.Line("focus " + control); }
    void Refused(int row, int column) override;
    void Beeped() override { mTranscript.Line("beep"); }
    void HelpShown(const std::string& path) override;
    platform::MessageAnswer Answer(const platform::Message& message) override;
    std::optional<std::size_t> Pick(const std::vector<std::string>& titles,
                                    const std::vector<std::vector<std::string>>& rows) override;
    std::optional<std::string> ChooseFile() override;

private:
    std::optional<Command> NextCommand();
    void Execute(const Command& command, controls::Form* topmost);
    bool RunAnywhere(const Command& command);
    void RunHost(const Command& command);
    std::optional<std::size_t> Choose(std::size_t rows);
    void Fail(const std::string& text);

    std::istream& mScript;
    Transcript mTranscript;
    ScriptHost mHost;
    int mLineNumber = 0;
    bool mFailed = false;
    std::deque<bool> mAnswers;
    std::deque<int> mPicks;  // row from 1; 0 is none
    std::deque<std::string> mFiles;
};

}  // namespace kelvane::drive

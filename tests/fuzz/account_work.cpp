// An operator who does anything at all on a sample account, with every window, pick list and file
// dialog that comes up: afterwards the check of the account finds nothing wrong that was not wrong
// before, and no event of a window has failed.
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

#include "adapters/drive/toolbars.h"
#include "adapters/drive/window_commands.h"
#include "adapters/headless/headless_windows.h"
#include "adapters/output/formats/file_printing.h"
#include "controls/pick_window.h"
#include "entries/check/check.h"
#include "host/account/session.h"
#include "host/commands/bulk_output.h"
#include "host/creation/account_creation.h"
#include "host/surroundings/absent_windows.h"
#include "tests/database/sqlite_account.h"
#include "tests/fuzz/fuzz.h"

using namespace kelvane;
using fuzz::Require;

namespace {

namespace fs = std::filesystem;

constexpr std::array kKeys{
    "Enter",      "Escape",      "Tab",        "Up",       "Down",      "Left",     "Right",
    "Home",       "End",         "F2",         "F3",       "F4",        "F5",       "F6",
    "F7",         "F8",          "F9",         "F11",      "F12",       "Delete",   "Insert",
    "Space",      "Backspace",   "PageUp",     "Ctrl+F",   "Ctrl+Z",    "Ctrl+C",   "Ctrl+V",
    "Ctrl+A",     "Ctrl+D",      "Ctrl+P",     "Ctrl+N",   "Ctrl+S",    "Ctrl+G",   "Ctrl+I",
    "Shift+Down", "Shift+Right", "Ctrl+Enter", "Ctrl+End", "Ctrl+Home", "Shift+F9", "Ctrl+'"};
constexpr std::array kTexts{"12.5",       "-3",       "0",
                            "1e3",        "1,234.50", "2004.6.1",
                            "2004-13-1",  "D01",      "P01",
                            "P02",        "人工",     "'",
                            "a'b",        "''",       "x\ty",
                            "二月人工费", " ",        "922337203685477.5807",
                            "D",          "01",       "1",
                            "99999",      "%",        "[",
                            "20040601",   "-",        "A very long text of the operator's"};
constexpr std::array kFiles{"out.xlsx", "out.csv",         "out.xml",
                            "in.csv",   "missing/out.csv", "in.xlsx"};
constexpr std::array kClipboards{"12\t13\n14\t15", "2004.6.1\tD01\tP01",
                                 "日期\t责任中心\t项目编号\t要素\t摘要\t未结转期初\n2004.6."
                                 "1\tD01\tP01\t人工费\t一月\t\"1,234.50\"\n"};

class RandomOperator : public drive::Operator {
public:
    explicit RandomOperator(const std::string& bytes)
        : mInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()),
          mTranscript(mLines) {}

    std::string Done() const { return mLines.str(); }
    void SetWindows(platform::Windows& windows) { mWindows = &windows; }

    bool Act(controls::Form& topmost) override {
        if (mInput.AtEnd()) return false;
        if (auto* list = topmost.AsPickWindow()) {
            list->Choose(Chosen(list->ShownRows().size()));
            return true;
        }
        try {
            const std::string line = NextLine(topmost);
            const auto command = drive::ParseCommand(line);
            mLines << line << '\n';
            if (command) drive::RunInWindow(*command, topmost, Surroundings());
        } catch (const drive::ScriptError&) {
            mLines << "# not here\n";
        }
        return true;
    }

    void Opened(const std::string& window) override { mLines << "# open " << window << '\n'; }
    void Closed(const std::string& window) override { mLines << "# close " << window << '\n'; }
    void Focused(const std::string& /*control*/) override {}
    void Refused(int /*row*/, int /*column*/) override {}
    void Beeped() override {}

    platform::MessageAnswer Answer(const platform::Message& message) override {
        if (message.buttons == platform::MessageButtons::Ok) {
            mLines << "# " << message.text << '\n';
            return platform::MessageAnswer::Ok;
        }
        const bool yes = mInput.Number(3) != 0;
        mLines << "# " << message.text << (yes ? ": yes\n" : ": no\n");
        return yes ? platform::MessageAnswer::Yes : platform::MessageAnswer::No;
    }
    std::optional<std::size_t> Pick(const std::vector<std::string>& /*titles*/,
                                    const std::vector<std::vector<std::string>>& rows) override {
        return Chosen(rows.size());
    }
    std::optional<std::string> ChooseFile() override { return OneOf(kFiles); }

private:
    template <typename Texts>
    std::string OneOf(const Texts& texts) {
        return texts[static_cast<std::size_t>(mInput.Number(static_cast<int>(texts.size())))];
    }
    std::string NumberText(int below) { return std::to_string(mInput.Number(below)); }

    std::optional<std::size_t> Chosen(std::size_t rows) {
        const int row = mInput.Number(static_cast<int>(std::min<std::size_t>(rows, 200)) + 1);
        mLines << "# pick " << row << '\n';
        if (row == 0) return std::nullopt;
        return static_cast<std::size_t>(row - 1);
    }

    std::string AnyControl(const controls::Form& form) {
        const auto& all = form.Controls();
        if (all.empty()) return {};
        return all[static_cast<std::size_t>(mInput.Number(static_cast<int>(all.size())))]->Name();
    }
    std::string AnyButton(const controls::Form& form) {
        const auto buttons = drive::ShownToolbar(form).Buttons();
        if (buttons.empty()) return {};
        return buttons[static_cast<std::size_t>(mInput.Number(static_cast<int>(buttons.size())))]
            .key;
    }
    std::string AnyOfMenu(const controls::Form& form) {
        // A line between groups is null.
        std::vector<const controls::WindowAction*> actions = form.MenuActions();
        std::erase(actions, nullptr);
        if (actions.empty()) return {};
        return actions[static_cast<std::size_t>(mInput.Number(static_cast<int>(actions.size())))]
            ->caption;
    }

    // A line of an operator script, so that what was done can be read and done again.
    std::string NextLine(const controls::Form& form) {
        switch (mInput.Number(18)) {
            case 0:
            case 1:
            case 2:
                return "go " + NumberText(16) + " " + NumberText(12);
            case 3:
            case 4:
            case 5:
                return "edit \"" + OneOf(kTexts) + "\"";
            case 6:
                return "type \"" + OneOf(kTexts) + "\"";
            case 7:
                return "ref";
            case 8:
                return "drop";
            case 9:
                return "click " + AnyButton(form);
            case 10:
                return "press " + AnyControl(form);
            case 11:
                return "set " + AnyControl(form) + " \"" + OneOf(kTexts) + "\"";
            case 12:
                return "menu \"" + AnyOfMenu(form) + "\"";
            case 13:
                return "title " + NumberText(12);
            case 14:
                return "clipboard \"" + OneOf(kClipboards) + "\"";
            case 15:
                return mInput.Number(4) == 0 ? "close" : "print window";
            default:
                return "key " + OneOf(kKeys);
        }
    }

    drive::CommandSurroundings Surroundings() {
        return {
            .transcript = mTranscript,
            .choose = [this](std::size_t rows) { return Chosen(rows); },
            .sendKeys = [this](std::string_view keys) { mWindows->SendKeys(keys); },
            .clipboard = [this] { return mWindows->ClipboardText(); },
            .setClipboard = [this](std::string_view text) { mWindows->SetClipboardText(text); }};
    }

    fuzz::Bytes mInput;
    std::ostringstream mLines;
    drive::Transcript mTranscript;
    platform::Windows* mWindows = nullptr;
};

std::string ContentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// What is wrong with the account, as its check says it; what is unusual aside.
std::set<std::string> Errors(const std::string& path) {
    host::AbsentWindows windows;
    host::Session session(host::AccountPlace::File(path), windows, nullptr);
    session.LogIn({}, {});
    host::LoadContext();
    std::set<std::string> errors;
    for (const entries::CheckFinding& each : entries::CheckAccount().findings) {
        if (entries::IsWarning(each.finding.rule)) continue;
        errors.insert(std::to_string(each.identity) + ' ' + std::string(each.finding.id) + ' ' +
                      each.finding.text);
    }
    return errors;
}

// What was trapped beside what is refused by design: statements that a value made malformed, and
// files in folders that are not there.
std::string Failures(const std::string& log) {
    std::istringstream lines(ContentOf(log));
    std::string failures;
    for (std::string line; std::getline(lines, line);) {
        const bool designed = line.find("语句有语法错误：") != std::string::npos ||
                              line.find("there is no such folder") != std::string::npos;
        if (!designed) failures += line + "\n";
    }
    return failures;
}

// The folder of all runs, in which everything lies that the program writes.
class Place {
public:
    Place() {
        for (const char* folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"}) {
            setenv(folder, mFolder.Path(folder).c_str(), 1);
        }
        setenv("KELVANE_LOG", Log().c_str(), 1);
        host::CreateAccountFile(Account(), {.sample = true, .entries = 12});
        mFresh = ContentOf(Account());
        // The sample company has an entry that is wrong, to be found.
        mErrors = Errors(Account());
        fs::current_path(mFolder.Path(""));
        std::ofstream("in.csv") << kClipboards.back();
    }

    static Place& Shared() {
        static Place place;
        return place;
    }

    std::string Account() const { return mFolder.Path("account.kelvane"); }
    std::string Log() const { return mFolder.Path("log"); }

    const std::set<std::string>& KnownErrors() const { return mErrors; }

    void Restore() const {
        for (const char* ending : {"-wal", "-shm", "-journal"}) fs::remove(Account() + ending);
        std::ofstream(Account(), std::ios::binary) << mFresh;
        fs::remove(Log());
        fs::remove_all(mFolder.Path("XDG_DATA_HOME"));
    }

private:
    database_test::ScratchFolder mFolder;
    std::string mFresh;
    std::set<std::string> mErrors;
};

// What was done, as far as it came.
std::string Work(const std::string& account, const std::string& bytes) {
    RandomOperator person(bytes);
    headless::HeadlessWindows windows(person);
    person.SetWindows(windows);
    output::FilePrinting printing(
        [&person](const platform::FileQuestion& /*question*/) { return person.ChooseFile(); });
    host::Session session(host::AccountPlace::File(account), windows, nullptr, &printing);
    platform::DateTime today;
    platform::DateTime::Parse("2004-06-01", today);
    session.LogIn({}, today);
    session.Show();
    return person.Done();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const Place& place = Place::Shared();
    place.Restore();
    const std::string done =
        Work(place.Account(), std::string(reinterpret_cast<const char*>(bytes), size));
    const std::string failures = Failures(place.Log());
    Require(failures.empty(), "no event fails", done + failures);
    for (const std::string& error : Errors(place.Account())) {
        Require(place.KnownErrors().contains(error), "the account stays whole", done + error);
    }
    return 0;
}

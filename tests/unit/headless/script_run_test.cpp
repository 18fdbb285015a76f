// Whole scripts on a window: what the transcript says of each command.
#include <gtest/gtest.h>

#include "tests/unit/headless/sample_window.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::headless {
namespace {

// Runs `commands` between "show" and the script's end, and returns what the transcript has between
// the window's opening and its closing.
std::string RunIn(const std::string& commands, bool vetoClosing = false) {
    static const std::string kBegin = "> show\nopen frmSample\n[提示|none] activated\n";
    static const std::string kEnd = "[提示|exclamation] 再见\nclose frmSample\n";
    Session session("show\n" + commands);
    session.window.vetoClosing = vetoClosing;
    const std::string transcript = session.Run();
    EXPECT_EQ(session.status, 0) << transcript;
    EXPECT_TRUE(transcript.starts_with(kBegin)) << transcript;
    EXPECT_TRUE(transcript.ends_with(kEnd)) << transcript;
    if (transcript.size() < kBegin.size() + kEnd.size()) return transcript;
    return transcript.substr(kBegin.size(), transcript.size() - kBegin.size() - kEnd.size());
}

// The transcript and exit status of a script that fails.
std::string RunFailing(const std::string& script) {
    Session session(script);
    std::string transcript = session.Run();
    EXPECT_EQ(session.status, 1) << transcript;
    return transcript;
}

TEST(ScriptRun, AScriptWithoutCommandsDoesNothing) {
    Session session("\n; nothing\n");
    EXPECT_EQ(session.Run(), "");
    EXPECT_EQ(session.status, 0);
}

TEST(ScriptRun, InitHandsItsOptionsOver) {
    Session session("\xEF\xBB\xBFinit user=zhang\r\n");
    EXPECT_EQ(session.Run(), "> init user=zhang\n");
    EXPECT_EQ(session.user, "zhang");
}

TEST(ScriptRun, AWindowOpensAndClosesWithTheScriptsEnd) {
    EXPECT_EQ(RunIn(""), "");
}

TEST(ScriptRun, AWindowThatVetoesItsCloseBoxIsClosedAllTheSame) {
    EXPECT_EQ(RunIn("close\n", true), "> close\n");
}

TEST(ScriptRun, CloseReturnsToTheScriptThatCanShowAgain) {
    Session session("show\nclose\nshow\nclick Exit\n");
    const std::string once = "open frmSample\n[提示|none] activated\n";
    const std::string end = "[提示|exclamation] 再见\nclose frmSample\n";
    EXPECT_EQ(session.Run(),
              "> show\n" + once + "> close\n" + end + "> show\n" + once + "> click Exit\n" + end);
}

TEST(ScriptRun, EditChangesTheCellAndARefusalSaysWhere) {
    EXPECT_EQ(RunIn("go 1 2\nedit \"E 3\"\nedit bad\nedit E04\ngo 2 2\nedit E05\nprint grid\n"),
              "> go 1 2\n> edit \"E 3\"\n"
              "> edit bad\n[提示|information] 第一行\\n第二行\nrefused 1 2\n"
              "> edit E04\n> go 2 2\n> edit E05\nrefused 2 2\n"
              "> print grid\n"
              "0 0 |日期||\n1 10 |2004-01-01|E04|1.00\n2 20 |2004-01-02|#E02|2.00\n");
}

TEST(ScriptRun, ARefusedRowKeepsTheOperatorInTheColumnHandedBack) {
    EXPECT_EQ(RunIn("go 1 3\nedit \"\"\ngo 2 1\nprint window\n").substr(0, 52),
              "> go 1 3\n> edit \"\"\n> go 2 1\nrefused 1 3\n> print wind");
}

TEST(ScriptRun, TypingOpensTheCellAndEnterEndsIt) {
    EXPECT_EQ(RunIn("go 1 3\ntype 12x345678\nkey Enter\nprint grid\n"),
              "> go 1 3\n> type 12x345678\nbeep\nbeep\nbeep\n> key Enter\n> print grid\n"
              "0 0 |日期||\n1 10 |2004-01-01|E01|123456\n2 20 |2004-01-02|#E02|2.00\n");
}

TEST(ScriptRun, KeysReachTheWindowsCode) {
    EXPECT_EQ(RunIn("key Ctrl+P\nkey Ctrl+Shift+P\nkey F9\n"),
              "> key Ctrl+P\n[提示|information] printed\n> key Ctrl+Shift+P\n> key F9\n");
}

TEST(ScriptRun, SentKeysFollowTheCommandThatCausedThem) {
    EXPECT_EQ(RunIn("go 1 1\nkey F3\nprint window\n"),
              "> go 1 1\n> key F3\n> print window\nwindow frmSample\ncaption \"样本\"\n"
              "size 9195 6190\nnotice \"\"\n"
              "control Toolbar1 toolbar visible enabled\n"
              "control CTBCtrl1 toolbar-style hidden enabled\n"
              "control Picture1 picture visible enabled\n"
              "control CapLable label visible enabled \"期初\"\n"
              "control GridSample grid visible enabled focus\n"
              "control cmdRef button hidden enabled \"\"\n"
              "cell 1 1 to 1\nedit \"2004-01-01x\"\n");
}

TEST(ScriptRun, TheHelpKeyShowsTheHelpFile) {
    const host_test::TemporaryFolder folder;
    host_test::WriteText(folder / "项目管理.chm", "help");
    Session session("show\nkey F1\n");
    session.windows.SetHelpFile(folder.Path().string() + "\\项目管理.chm");
    EXPECT_NE(session.Run().find("> key F1\nhelp 项目管理.chm\n"), std::string::npos);
}

TEST(ScriptRun, WithoutAHelpFileTheHelpKeyShowsThePageOfKeys) {
    const std::string shown = "> key F1\nopen frmKeys\n> key F1\n> key Enter\nclose frmKeys\n";
    EXPECT_EQ(RunIn("key F1\nkey F1\nkey Enter\n"), shown);
    Session session("show\nkey F1\nkey F1\nkey Enter\n");
    session.windows.SetHelpFile("C:\\nowhere\\项目管理.chm");
    EXPECT_NE(session.Run().find(shown), std::string::npos);
}

TEST(ScriptRun, AReferenceButtonRunsTheDialogInsideTheCommand) {
    EXPECT_EQ(RunIn("go 1 2\nref\nset TxtCode E09\npress CmdOK\nprint grid\n"),
              "> go 1 2\n> ref\nopen dlgSample\n> set TxtCode E09\n> press CmdOK\n"
              "close dlgSample\n> print grid\n"
              "0 0 |日期||\n1 10 |2004-01-01|E09|1.00\n2 20 |2004-01-02|#E02|2.00\n");
}

TEST(ScriptRun, AScriptThatEndsInADialogClosesTheWindowsFromTheTop) {
    EXPECT_EQ(RunIn("go 1 2\nref\n"), "> go 1 2\n> ref\nopen dlgSample\nclose dlgSample\n");
}

TEST(ScriptRun, AReferenceButtonThatIsNotThereIsRefused) {
    EXPECT_EQ(RunIn("ref\ngo 1 1\nref\ngo 2 2\nref\n"),
              "> ref\nrefused 0 0\n> go 1 1\n> ref\nrefused 1 1\n> go 2 2\n> ref\nrefused 2 2\n");
}

TEST(ScriptRun, DropShowsTheListAndTakesTheChosenItem) {
    EXPECT_EQ(RunIn("go 1 1\ndrop\npick 2\ndrop\npick none\ndrop\ngo 1 3\ndrop\nprint grid\n"),
              "> go 1 1\n> drop\nlist:\n2004-02-01\n2004-02-02\n"
              "> pick 2\n> drop\nlist:\n2004-02-01\n2004-02-02\n"
              "> pick none\n> drop\nlist:\n2004-02-01\n2004-02-02\n"
              "> go 1 3\n> drop\nrefused 1 3\n> print grid\n"
              "0 0 |日期||\n1 10 |2004-02-02|E01|1.00\n2 20 |2004-01-02|#E02|2.00\n");
}

TEST(ScriptRun, DropOfAComboBoxByName) {
    EXPECT_EQ(RunIn("go 1 2\nref\npick 2\ndrop ComKey1\nprint window\nclose\n"),
              "> go 1 2\n> ref\nopen dlgSample\n> pick 2\n> drop ComKey1\nlist:\n甲\n乙\n"
              "> print window\nwindow dlgSample\ncaption \"\"\nsize 9195 6190\nnotice \"\"\n"
              "control TxtCode edit visible enabled focus \"\"\n"
              "control ComKey1 combo visible enabled \"乙\"\n"
              "control CmdOK button visible enabled \"\"\n"
              "> close\nclose dlgSample\n");
}

TEST(ScriptRun, QuestionsTakeTheWaitingAnswersAndThenThePreselectedButton) {
    EXPECT_EQ(RunIn("answer yes\nanswer no\nclick Ask\nclick Ask\nclick Ask\n"),
              "> answer yes\n> answer no\n> click Ask\n[提示|question] 继续？ -> yes\n"
              "> click Ask\n[提示|question] 继续？ -> no\n"
              "> click Ask\n[提示|question] 继续？ -> no\n");
}

TEST(ScriptRun, ClickUsesTheToolbarThatIsShown) {
    Session session("show\nprint toolbar\nclick Add\nclick Ask\n");
    session.window.toolbar.Button("Ask")->SetEnabled(false);
    session.window.toolbar.Button("Exit")->SetVisible(false);
    session.window.styled.SetToolbar(session.window.toolbar);
    session.window.styled.SetDisplayStyle(1);
    session.window.styled.SetVisible(true);
    session.window.toolbar.SetVisible(false);
    session.window.toolbar.Button("Exit")->SetVisible(true);
    EXPECT_EQ(session.Run(),
              "> show\nopen frmSample\n[提示|none] activated\n"
              "> print toolbar\nAdd 增加 enabled\n-\nAsk 询问 disabled\nExit 退出 enabled hidden\n"
              "> click Add\nfocus GridSample\n> click Ask\n"
              "[提示|exclamation] 再见\nclose frmSample\n");
}

TEST(ScriptRun, PressOfAHiddenButtonDoesNothing) {
    EXPECT_EQ(RunIn("press cmdRef\n"), "> press cmdRef\n");
}

TEST(ScriptRun, PrintSqlShowsTheStatementsSinceTheLastTime) {
    Session session("print sql\nprint sql\n");
    session.statements.Add("gConn", "select 1 ");
    session.statements.Add("gEnv", "select\n2");
    EXPECT_EQ(session.Run(), "> print sql\ngConn select 1 \ngEnv select\\n2\n> print sql\n");
}

TEST(ScriptRun, SkipSqlForgetsTheStatementsSinceTheLastTime) {
    Session session("skip sql\nprint sql\ninit user=zhang\nprint sql\n");
    session.statements.Add("gConn", "select 1 ");
    session.person.SetHost(
        {[&](const drive::InitOptions&) { session.statements.Add("gEnv", "select 2"); },
         {},
         {},
         &session.statements});
    EXPECT_EQ(session.Run(),
              "> skip sql\n> print sql\n> init user=zhang\n> print sql\ngEnv select 2\n");
}

TEST(ScriptRun, GoFindsTheRowOfAnEntry) {
    const std::string commands = "go entry=20 1\ngo entry=10 3\n";
    EXPECT_TRUE(RunIn(commands + "print window\n").ends_with("\ncell 1 3 to 3\nedit none\n"));
}

TEST(ScriptRun, PicksAndFilesAreTakenInTheirOrder) {
    Session session("pick 2\npick none\nfile a b.csv\nfile none\n");
    session.Run();
    EXPECT_EQ(session.person.Pick({"编码", "名称"}, {{"01", "甲"}, {"02", "乙"}}), 1U);
    EXPECT_EQ(session.person.Pick({"编码"}, {{"01"}}), std::nullopt);
    EXPECT_EQ(session.person.Pick({"编码"}, {}), std::nullopt);
    EXPECT_EQ(session.person.ChooseFile(), "a b.csv");
    EXPECT_EQ(session.person.ChooseFile(), std::nullopt);
    EXPECT_EQ(session.person.ChooseFile(), std::nullopt);
    EXPECT_EQ(session.Run(),
              "> pick 2\n> pick none\n> file a b.csv\n> file none\n"
              "list: 编码,名称\n01|甲\n02|乙\nlist: 编码\n01\nlist: 编码\n");
}

TEST(ScriptRun, AnErrorNamesItsLineAndClosesTheWindowsInOrder) {
    EXPECT_EQ(RunFailing("; first\nshow\ngo 1 2\nref\njump\nclose\n"),
              "> show\nopen frmSample\n[提示|none] activated\n> go 1 2\n> ref\nopen dlgSample\n"
              "> jump\nerror: line 5: unknown command \"jump\"\nclose dlgSample\n"
              "[提示|exclamation] 再见\nclose frmSample\n");
}

TEST(ScriptRun, WhatCannotBeDoneIsAnError) {
    const std::string begin = "> show\nopen frmSample\n[提示|none] activated\n";
    const std::string end = "[提示|exclamation] 再见\nclose frmSample\n";
    const std::vector<std::pair<std::string, std::string>> cases{
        {"go 3 1", "no cell 3 1 to go to"},
        {"go 0 1", "no cell 0 1 to go to"},
        {"go 1 0", "no cell 1 0 to go to"},
        {"go 1 4", "no cell 1 4 to go to"},
        {"go 1 x", "\"x\" is not a number"},
        {"go entry=30 1", "no row of entry 30"},
        {"go entry=0 1", "no row of entry 0"},
        {"go entry=10 4", "no cell entry=10 4 to go to"},
        {"go entry= 1", "\"\" is not a number"},
        {"key F13", "no key \"F13\""},
        {"click Save", "the toolbar has no button \"Save\""},
        {"press GridSample", "frmSample has no button GridSample"},
        {"set CapLable x", "frmSample has no field CapLable"},
        {"drop ComKey9", "frmSample has no drop-down list ComKey9"},
        {"print paper", "cannot print \"paper\""},
        {"skip grid", "cannot skip \"grid\""},
        {"pick 0", "rows of a list are numbered from 1"},
        {"answer perhaps", "\"perhaps\" is neither yes nor no"},
        {"show", "not while a window is open"},
        {"init", "not while a window is open"},
    };
    for (const auto& [command, error] : cases) {
        EXPECT_EQ(RunFailing("show\n" + command + "\n"),
                  begin + "> " + command + "\nerror: line 2: " + error + "\n" + end);
    }
    EXPECT_EQ(RunFailing("go 1 1\nshow\n"), "> go 1 1\nerror: line 1: no window is open\n");
    EXPECT_EQ(RunFailing("init year=x\n"), "> init year=x\nerror: line 1: \"x\" is not a number\n");
}

TEST(ScriptRun, CommandsForAGridOrAToolbarNeedOne) {
    const std::string prefix = "show\ngo 1 2\nref\n";
    for (const char* command : {"ref", "go 1 1", "edit x", "drop", "print grid"}) {
        EXPECT_NE(RunFailing(prefix + command + "\n")
                      .find("error: line 4: dlgSample has no grid\nclose dlgSample\n"),
                  std::string::npos)
            << command;
    }
    for (const char* command : {"click Add", "print toolbar"}) {
        EXPECT_NE(RunFailing(prefix + command + "\n")
                      .find("error: line 4: dlgSample shows no toolbar\nclose dlgSample\n"),
                  std::string::npos)
            << command;
    }
}

TEST(ScriptRun, APickBeyondTheListIsAnError) {
    EXPECT_EQ(RunFailing("show\ngo 1 1\npick 3\ndrop\n"),
              "> show\nopen frmSample\n[提示|none] activated\n> go 1 1\n> pick 3\n> drop\n"
              "list:\n2004-02-01\n2004-02-02\nerror: line 4: the list has no row 3\n"
              "[提示|exclamation] 再见\nclose frmSample\n");
}

TEST(ScriptRun, AFailedLoginFailsTheScript) {
    Session session("init user=nobody\nshow\n");
    session.person.SetHost({[](const drive::InitOptions&) {
                                throw platform::DatabaseError("no such operator\nin the account");
                            },
                            [] { FAIL() << "must not be shown"; },
                            {},
                            nullptr});
    EXPECT_EQ(session.Run(), "> init user=nobody\nerror: no such operator\\nin the account\n");
    EXPECT_EQ(session.status, 1);
}

}  // namespace
}  // namespace kelvane::headless

// The window's commands: entering all rows, more rows from the clipboard, rows that are left out,
// the columns by hand.
#include <algorithm>
#include <functional>
#include <utility>

#include "data/login_context.h"
#include "data/messages.h"
#include "entries/failure_reason.h"
#include "ui/import/import_window.h"
#include "ui/import/work_progress.h"

namespace kelvane::ui {

using entries::RowFate;

bool frmImport::FinishEdits() {
    return GridRows.FinishEdit() != controls::GridAnswer::Refuse &&
           GridLines.FinishEdit() != controls::GridAnswer::Refuse;
}

platform::BatchIntent frmImport::Head() const {
    platform::BatchIntent head;
    head.kind = "import";
    head.user = data::gLogin->UserId();
    head.time = data::gServices->today();
    head.file = mSource;
    head.hash = mHash;
    return head;
}

void frmImport::Enter() {
    if (!FinishEdits() || !cmdImport.Enabled()) return;
    try {
        Write();
    } catch (const entries::ImportCancelled& cancelled) {
        SetNotice(cancelled.what());
    } catch (const platform::CommitInDoubt&) {
        data::ReportTrapped("ImportEntries");
        data::ShowMessage(
            "没有收到数据库的答复，不知道是否已经录入。请关闭此窗口，重新打开列表查看。",
            data::kPromptCaption, platform::MessageIcon::Exclamation);
    } catch (const std::exception& failed) {
        data::ReportTrapped("ImportEntries");
        const std::string reason = entries::ReasonOfFailure();
        data::ShowMessage("没有录入任何行：" + (reason.empty() ? failed.what() : reason),
                          data::kPromptCaption, platform::MessageIcon::Exclamation);
    }
}

void frmImport::Write() {
    platform::TableImport& service = *data::gServices->tableImport;
    const auto journal = service.OpenJournal();
    entries::ImportRequest request;
    request.head = Head();
    request.journal = journal.get();
    request.again = !mFormer.empty();
    request.expectedRows = mTotals.rows;
    request.expectedSums = mTotals.sums;
    const auto run = [&] {
        WorkProgress progress(service, "录入期初");
        request.progress = std::ref(progress);
        return entries::RunImport(mSheet.File(), mAccount, request);
    };
    entries::ImportResult result = run();
    std::erase_if(result.notes, [this](const std::string& note) {
        return std::ranges::find(mFormer, note) != mFormer.end();
    });
    const auto again = std::ranges::find(result.plan.findings, entries::Rule::FileAgain,
                                         [](const auto& each) { return each.finding.rule; });
    if (again != result.plan.findings.end()) {
        // Meanwhile, or a try whose answer was lost.
        if (MayImportAgain()) Write();
        return;
    }
    if (result.HasFindings()) return TellRefusals(result);
    mAnswer = ImportAnswer{.created = result.plan.Count(RowFate::New),
                           .changed = result.plan.Count(RowFate::Changed),
                           .deleted = result.plan.Count(RowFate::Deleted),
                           .firstIdentity = result.firstIdentity,
                           .batch = result.batch,
                           .notes = std::move(result.notes)};
    Unload();
}

// The account is no longer what the rows were checked against, or refuses all of them.
void frmImport::TellRefusals(const entries::ImportResult& result) {
    std::string texts;
    for (const entries::BulkFinding& each : result.plan.findings) {
        if (each.row == 0) texts += (texts.empty() ? "" : "\n") + each.finding.text;
    }
    if (texts.empty()) {
        mSheet.TakeFindings(result.plan);
        mKnown = std::make_unique<entries::FileMasterData>(mAccount);
        MarkFaults();
        cmdImport.SetEnabled(false);
        texts = "有 " + std::to_string(mSheet.RefusedRows()) + " 行被拒绝，没有录入任何行。";
    }
    data::ShowInformation(texts);
}

void frmImport::AssignColumns() {
    if (!FinishEdits()) return;
    const bool mayLose =
        !mIsChanged || data::AskQuestion("重新对应列将放弃已改正的内容，要继续吗？");
    if (mayLose) RunTold([this] { TakeTables(true); });
}

void frmImport::PasteRows() {
    RunTold([this] {
        const auto reader =
            data::gServices->tableImport->OpenCopied(data::gServices->windows->ClipboardText());
        const auto tables = ImportReading(*reader, entries::TitlesOfAccount(), true).Read(false);
        if (!tables || tables->table.rows.empty()) return;
        const std::size_t first = mSheet.Entries().size();
        mSheet.Append(tables->table);
        mIsChanged = true;
        Refill();
        CheckAll();
        GridRows.SetFocus();
        for (int row = 1; row < GridRows.Rows(); ++row) {
            if (EntryOf(row) == first) GridRows.MoveTo(row, entries::kDateColumn);
        }
    });
}

void frmImport::AddLine() {
    if (!FinishEdits()) return;
    const std::size_t entry = CurrentEntry();
    const int row = GridRows.Row();
    mSheet.AddLine(entry);
    mIsChanged = true;
    Refill();
    GridRows.MoveTo(row, GridRows.Col());
    CheckAll();
    GridLines.MoveTo(GridLines.Rows() - 1, entries::kLineCodeColumn);
    if (ActiveControl() != &GridLines) GridLines.SetFocus();
}

void frmImport::RemoveRow() {
    const bool line = ActiveControl() == &GridLines;
    if (!data::AskQuestion(line ? "不导入此行明细吗？" : "不导入此行吗？")) return;
    if (line) {
        mSheet.RemoveLine(mShownEntry, static_cast<std::size_t>(GridLines.Row()) - 1);
    } else {
        mSheet.RemoveEntry(CurrentEntry());
    }
    mIsChanged = true;
    Refill();
    CheckAll();
}

}  // namespace kelvane::ui

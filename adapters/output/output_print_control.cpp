#include "adapters/output/output_print_control.h"

#include <algorithm>
#include <utility>

#include "adapters/output/preview_window.h"
#include "adapters/output/style/style_service.h"

namespace kelvane::output {

using platform::kExportCancelled;

namespace {

std::vector<std::size_t> ShownColumns(const std::vector<platform::ColumnText>& columns) {
    std::vector<std::size_t> shown;
    for (std::size_t col = 0; col < columns.size(); ++col) {
        if (columns[col].width > 0) shown.push_back(col);
    }
    return shown;
}

// A grid that was handed over without a style, laid out as it is.
Sheet PlainSheet(const Export& data) {
    std::vector<std::string> rows;
    std::string_view rest = data.dataText;
    for (std::size_t end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
        rows.emplace_back(rest.substr(0, end));
        rest.remove_prefix(end + 1);
    }
    Sheet sheet;
    sheet.columns = data.columns;
    sheet.rows = static_cast<int>(rows.size());
    sheet.cells = [rows = std::move(rows)](int row) { return rows[static_cast<std::size_t>(row)]; };
    return sheet;
}

}  // namespace

int OutputPrintControl::SetDataStyleXml(platform::PrintStyleService& style,
                                        std::string_view styleName) {
    mJob.reset();
    auto* own = dynamic_cast<StyleService*>(&style);
    auto sheet = own == nullptr ? std::nullopt : own->MakeSheet(styleName);
    if (!sheet) return kRefused;
    if (!own->FileRefusal().empty() && mEnvironment.failed) {
        mEnvironment.failed("ReadStyle", own->FileRefusal());
    }
    mJob = std::make_unique<PrintJob>(std::move(*sheet), std::string(styleName), mMeasurer);
    return 0;
}

void OutputPrintControl::Preview() {
    if (!mJob) return;
    PreviewActions actions{
        .print = [this] { PrintPages(); }, .saveSettings = {}, .failed = mEnvironment.failed};
    if (mEnableSave) {
        actions.saveSettings = [this] {
            if (!SaveSettings) return;
            const StyleTexts texts = mJob->Texts();
            SaveSettings(texts.settings, texts.layout);
        };
    }
    PreviewWindow window(mEnvironment.windows, *mJob, std::move(actions));
    mEnvironment.windows.ShowModal(window);
}

void OutputPrintControl::Print() {
    if (mJob) PrintPages();
}

void OutputPrintControl::PrintPages() {
    try {
        mEnvironment.surroundings.PrintPages(mJob->Pages());
    } catch (const WorkCancelled&) {
        return;
    } catch (const std::exception& failed) {
        Failed("Print", failed.what());
        mEnvironment.windows.ShowMessage(
            {.text = "打印失败！", .caption = "打印", .icon = platform::MessageIcon::Exclamation});
    }
}

int OutputPrintControl::WriteToFile(std::string_view dataText, std::string_view formatText) {
    try {
        platform::FileQuestion question{"输出到文件", SuggestedName(), {}};
        for (const FileFormat& format : FileFormats()) {
            question.types.push_back({std::string(format.name), std::string(format.extension)});
        }
        const auto path = mEnvironment.surroundings.ChooseFile(question);
        return path ? WriteTo(*path, dataText, formatText) : kExportCancelled;
    } catch (const WorkCancelled&) {
        return kExportCancelled;
    } catch (const std::exception& failed) {
        Failed("WriteToFile", failed.what());
        return kRefused;
    }
}

int OutputPrintControl::WriteTo(const std::string& path, std::string_view dataText,
                                std::string_view formatText) {
    const FileFormat* format = FindFormat(path);
    if (format == nullptr) {
        throw FileFailure(path + ": the name must end in one of these: " + WrittenExtensions());
    }
    Export data;
    data.columns = platform::DecodeColumns(formatText);
    data.shown = ShownColumns(data.columns);
    data.dataText = dataText;
    data.surroundings = &mEnvironment.surroundings;
    data.now = mEnvironment.now;
    if (mJob) {
        data.title = mJob->Content().title;
        data.settings = mJob->Settings();
    }
    data.pages = [this, &data]() -> const platform::PageSource& {
        if (!mJob) mJob = std::make_unique<PrintJob>(PlainSheet(data), "", mMeasurer);
        return mJob->Pages();
    };
    SafeFile file(path, mEnvironment.disk);
    format->write(data, file);
    file.Finish();
    return 0;
}

void OutputPrintControl::Failed(std::string_view place, std::string_view reason) const {
    mEnvironment.surroundings.Failed(reason);
    if (mEnvironment.failed) mEnvironment.failed(place, reason);
}

std::string OutputPrintControl::SuggestedName() const {
    std::string name = mJob && !mJob->Content().title.empty() ? mJob->Content().title : "输出";
    std::replace_if(
        name.begin(), name.end(),
        [](char c) { return std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos; },
        ' ');
    return name + "." + std::string(FileFormats().front().extension);
}

}  // namespace kelvane::output

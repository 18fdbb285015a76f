// A grid written to a file as data: what the writers of all formats start from.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/output/files/safe_file.h"
#include "adapters/output/files/work_meter.h"
#include "adapters/output/layout/page_settings.h"
#include "platform/grid_text.h"
#include "platform/page.h"

namespace kelvane::output {

struct Export {
    std::string title;
    PageSettings settings;
    std::vector<platform::ColumnText> columns;  // all of them
    std::vector<std::size_t> shown;             // those with a width
    std::string_view dataText;
    // The same as pages, made when they are asked for.
    std::function<const platform::PageSource&()> pages;
    platform::PrintSurroundings* surroundings = nullptr;
    WorkMeter::Clock::time_point (*now)() = &WorkMeter::Clock::now;

    std::size_t Rows() const;
    const platform::ColumnText& Column(std::size_t place) const { return columns[shown[place]]; }
    WorkMeter Meter(std::size_t steps) const {
        return {surroundings, "正在输出到文件…", steps, now};
    }
};

// Writes the whole file but for SafeFile::Finish(). Throws FileFailure and WorkCancelled.
using FormatWriter = void (*)(const Export& data, SafeFile& file);

void WriteXlsx(const Export& data, SafeFile& file);
void WriteCsv(const Export& data, SafeFile& file);
void WriteXml(const Export& data, SafeFile& file);
// The pages, each of them a step of the work.
void WritePdf(const Export& data, SafeFile& file);

// One format a file's extension stands for.
struct FileFormat {
    std::string_view extension;
    std::string_view name;
    FormatWriter write;
};

// All formats, the usual one first.
const std::vector<FileFormat>& FileFormats();

// The format of a file (UTF-8) by its extension, whatever the case; null when there is none.
const FileFormat* FindFormat(std::string_view path);

// What a file's name may end in: ".xlsx, .csv, .pdf, .xml".
std::string WrittenExtensions();

}  // namespace kelvane::output

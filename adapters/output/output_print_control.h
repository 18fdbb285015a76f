// OutputPrintControl: previews, prints and writes what a window wants on paper.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "adapters/output/files/disk.h"
#include "adapters/output/formats/table_export.h"
#include "adapters/output/layout/ruled_measurer.h"
#include "adapters/output/print_job.h"
#include "platform/print_surroundings.h"
#include "platform/printing.h"
#include "platform/windows.h"

namespace kelvane::output {

// Results of SetDataStyleXml and WriteToFile beside 0 and kExportCancelled.
inline constexpr int kRefused = 1;

// What the control runs on. All of it outlives the control.
struct PrintEnvironment {
    platform::Windows& windows;
    platform::PrintSurroundings& surroundings;
    // Where it is told why something failed, or was done without the style file; may be empty.
    std::function<void(std::string_view place, std::string_view reason)> failed;
    Disk& disk = SystemDisk();
    // The clock by which long work is shown.
    WorkMeter::Clock::time_point (*now)() = &WorkMeter::Clock::now;
    // What the pages' letters are measured with.
    RuledMeasurer::RulerMaker makeRuler = SystemRuler;
};

class OutputPrintControl : public platform::PrintControl {
public:
    explicit OutputPrintControl(PrintEnvironment environment)
        : mEnvironment(std::move(environment)), mMeasurer(mEnvironment.makeRuler) {}

    void SetEnableSave(bool enabled) override { mEnableSave = enabled; }
    int SetDataStyleXml(platform::PrintStyleService& style, std::string_view styleName) override;

    // Nothing happens without an accepted style. What cannot be printed is told in a message box.
    void Preview() override;
    void Print() override;

    // Everything that goes wrong is reported to `failed` and is kRefused.
    int WriteToFile(std::string_view dataText, std::string_view formatText) override;

private:
    void PrintPages();
    int WriteTo(const std::string& path, std::string_view dataText, std::string_view formatText);
    void Failed(std::string_view place, std::string_view reason) const;
    std::string SuggestedName() const;

    PrintEnvironment mEnvironment;
    bool mEnableSave = false;
    RuledMeasurer mMeasurer;
    std::unique_ptr<PrintJob> mJob;
};

}  // namespace kelvane::output

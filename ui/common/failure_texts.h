// What more than one window says on its lower line of work that failed.
#pragma once

#include <string_view>

namespace kelvane::ui {

// Of anything that has no sentence of its own.
inline constexpr std::string_view kWorkFailed = "操作时出错，该操作没有完成。";
inline constexpr std::string_view kFileNotWritten =
    "输出到文件时出错，文件没有写成，原有的文件没有改变。";
inline constexpr std::string_view kNotPrinted = "打印时出错，没有打印完。";
inline constexpr std::string_view kStyleUnusable = "打印设置文件不能使用，已按默认设置排版。";
inline constexpr std::string_view kSettingsNotSaved = "保存打印设置时出错，设置没有保存。";

}  // namespace kelvane::ui

#include "adapters/journal/failures.h"

#include <algorithm>
#include <array>

#include "platform/native_path.h"

namespace kelvane::journal {

namespace {

struct KnownReason {
    std::errc code;
    const char* text;
};
constexpr std::array kReasons{
    KnownReason{std::errc::no_space_on_device, "所在的磁盘已满"},
    KnownReason{std::errc::permission_denied, "不允许访问"},
    KnownReason{std::errc::operation_not_permitted, "不允许访问"},
    KnownReason{std::errc::read_only_file_system, "所在的磁盘是只读的"},
    KnownReason{std::errc::device_or_resource_busy, "正被其他程序使用"},
    KnownReason{std::errc::no_such_file_or_directory, "不存在"},
    KnownReason{std::errc::file_exists, "不是文件夹"},
    KnownReason{std::errc::not_a_directory, "不是文件夹"},
    KnownReason{std::errc::filename_too_long, "的名称太长"},
};

}  // namespace

std::string ReasonOf(const std::error_code& code) {
    const auto* const known =
        std::ranges::find_if(kReasons, [&](const KnownReason& each) { return code == each.code; });
    const char* text = known == kReasons.end() ? "读写出错" : known->text;
    return text + ("（" + code.message() + "）");
}

void Fail(const std::filesystem::path& path, const std::string& reason) {
    throw platform::JournalFailed("批次日志 " + platform::Utf8Of(path) + ' ' + reason);
}

}  // namespace kelvane::journal

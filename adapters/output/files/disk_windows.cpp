// The disk as Windows has it. Others may open, rename and write a file that is being written; only
// an exclusive opening fails, which tells that somebody is writing it.

#include <errno.h>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <array>
#include <filesystem>
#include <system_error>

#include "adapters/output/files/disk.h"
#include "platform/native_path.h"

namespace kelvane::output {

namespace {

struct Reason {
    DWORD code;
    std::errc meaning;
};
constexpr std::array kReasons{
    Reason{ERROR_ACCESS_DENIED, std::errc::permission_denied},
    Reason{ERROR_WRITE_PROTECT, std::errc::read_only_file_system},
    Reason{ERROR_SHARING_VIOLATION, std::errc::device_or_resource_busy},
    Reason{ERROR_LOCK_VIOLATION, std::errc::device_or_resource_busy},
    Reason{ERROR_USER_MAPPED_FILE, std::errc::device_or_resource_busy},
    Reason{ERROR_DISK_FULL, std::errc::no_space_on_device},
    Reason{ERROR_HANDLE_DISK_FULL, std::errc::no_space_on_device},
    Reason{ERROR_FILE_NOT_FOUND, std::errc::no_such_file_or_directory},
    Reason{ERROR_PATH_NOT_FOUND, std::errc::no_such_file_or_directory},
    Reason{ERROR_FILE_EXISTS, std::errc::file_exists},
    Reason{ERROR_ALREADY_EXISTS, std::errc::file_exists},
    Reason{ERROR_FILENAME_EXCED_RANGE, std::errc::filename_too_long},
};

// Throws for what the system refused last, with the reasons that other systems have for it.
[[noreturn]] void Refuse() {
    const DWORD code = GetLastError();
    for (const Reason& reason : kReasons) {
        if (reason.code == code) throw std::system_error(std::make_error_code(reason.meaning));
    }
    throw std::system_error(std::make_error_code(std::errc::io_error));
}

void Need(bool done) {
    if (!done) Refuse();
}

// For the calls of the C library.
void NeedNoError(bool done) {
    if (!done) throw std::system_error(errno, std::generic_category());
}

std::wstring Wide(const std::string& path) {
    return platform::PathOf(path).wstring();
}

HANDLE HandleOf(int file) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(file));
}

// What was opened, as the C library knows it.
int DescriptorOf(HANDLE handle) {
    Need(handle != INVALID_HANDLE_VALUE);
    const int file = _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), _O_BINARY);
    if (file < 0) CloseHandle(handle);
    NeedNoError(file >= 0);
    return file;
}

}  // namespace

void Disk::CheckWritable(const std::string& path) {
    constexpr int kWritable = 2;
    NeedNoError(_waccess(Wide(path).c_str(), kWritable) == 0 || errno == ENOENT);
}

int Disk::Create(const std::string& path) {
    constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return DescriptorOf(CreateFileW(Wide(path).c_str(), GENERIC_WRITE, kShared, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
}

void Disk::RemoveLeftBehind(const std::string& path) {
    // Nobody else may have it open.
    HANDLE handle = CreateFileW(Wide(path).c_str(), DELETE, 0, nullptr, OPEN_EXISTING,
                                FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
}

void Disk::Write(int file, std::string_view bytes) {
    constexpr std::size_t kMaxCount = 1U << 20U;
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto count = static_cast<DWORD>(std::min(bytes.size(), kMaxCount));
        Need(WriteFile(HandleOf(file), bytes.data(), count, &written, nullptr) != 0);
        if (written == 0) SetLastError(ERROR_DISK_FULL);
        Need(written > 0);
        bytes.remove_prefix(written);
    }
}

// A new file has the rights that its folder gives.
void Disk::CopyRights(int /*file*/, const std::string& /*model*/) {}

void Disk::Sync(int file) {
    Need(FlushFileBuffers(HandleOf(file)) != 0);
}

int Disk::Reopen(const std::string& path) {
    // Refused while another one may write it, and refuses others that want to.
    return DescriptorOf(CreateFileW(Wide(path).c_str(), GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
}

void Disk::CutOff(int file, std::uintmax_t length) {
    LARGE_INTEGER end{};
    end.QuadPart = static_cast<LONGLONG>(length);
    Need(SetFilePointerEx(HandleOf(file), end, nullptr, FILE_BEGIN) != 0);
    Need(SetEndOfFile(HandleOf(file)) != 0);
}

void Disk::Close(int file) {
    NeedNoError(_close(file) == 0);
}

void Disk::Rename(const std::string& from, const std::string& to) {
    Need(MoveFileExW(Wide(from).c_str(), Wide(to).c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0);
}

// A person's folders are closed to others, and what is made in them inherits that.
void Disk::MakeFolder(const std::string& folder) {
    const std::filesystem::path path = platform::PathOf(folder);
    if (!path.empty() && !std::filesystem::is_directory(path)) {
        std::filesystem::create_directories(path);
    }
}

// Renaming waits until it has reached the disk, and syncing a file takes its name along.
void Disk::SyncFolder(const std::string& /*folder*/) {}

bool Disk::IsBeingWritten(const std::string& path) {
    HANDLE handle =
        CreateFileW(Wide(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(handle);
    return false;
}

Disk& SystemDisk() {
    static Disk disk;
    return disk;
}

}  // namespace kelvane::output

#include "adapters/output/files/disk.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace kelvane::output {

namespace {

// What the account holds is nobody else's business until its owner says so.
constexpr mode_t kNewFileRights = S_IRUSR | S_IWUSR;
// Reading, writing and searching. A program's borrowed identity is none of these.
constexpr mode_t kCopiedRights = S_IRWXU | S_IRWXG | S_IRWXO;

[[noreturn]] void Fail() {
    throw std::system_error(errno, std::generic_category());
}

void Need(bool done) {
    if (!done) Fail();
}

}  // namespace

void Disk::CheckWritable(const std::string& path) {
    Need(access(path.c_str(), W_OK) == 0 || errno == ENOENT);
}

int Disk::Create(const std::string& path) {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    for (;;) {
        const int file = open(path.c_str(), kFlags, kNewFileRights);
        Need(file >= 0);
        // Where files cannot be locked, none is ever taken for one that was left behind.
        flock(file, LOCK_EX);
        struct stat found {};
        if (fstat(file, &found) != 0 || found.st_nlink > 0) return file;
        // Another process took it for one that was left behind before it was locked.
        close(file);
    }
}

void Disk::RemoveLeftBehind(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) return;
    if (flock(file, LOCK_EX | LOCK_NB) == 0) unlink(path.c_str());
    close(file);
}

void Disk::Write(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        Need(written > 0);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void Disk::CopyRights(int file, const std::string& model) {
    struct stat found {};
    const bool there = stat(model.c_str(), &found) == 0;
    Need(fchmod(file, there ? found.st_mode & kCopiedRights : kNewFileRights) == 0);
}

void Disk::Sync(int file) {
    Need(fsync(file) == 0);
}

int Disk::Reopen(const std::string& path) {
    const int file = open(path.c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    Need(file >= 0);
    struct stat found {};
    const bool busy = flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    const bool gone = !busy && fstat(file, &found) == 0 && found.st_nlink == 0;
    if (!busy && !gone) return file;
    close(file);
    errno = busy ? EBUSY : ENOENT;
    Fail();
}

void Disk::CutOff(int file, std::uintmax_t length) {
    const auto end = static_cast<off_t>(length);
    Need(ftruncate(file, end) == 0);
    Need(lseek(file, end, SEEK_SET) == end);
}

void Disk::Close(int file) {
    Need(close(file) == 0);
}

void Disk::Rename(const std::string& from, const std::string& to) {
    Need(std::rename(from.c_str(), to.c_str()) == 0);
}

void Disk::MakeFolder(const std::string& folder) {
    const std::filesystem::path path(folder);
    if (path.empty() || std::filesystem::is_directory(path)) return;
    MakeFolder(path.parent_path().string());
    if (!path.has_filename()) return;  // "a/" is made as "a"
    // Another program may have made it meanwhile.
    Need(mkdir(path.c_str(), S_IRWXU) == 0 ||
         (errno == EEXIST && std::filesystem::is_directory(path)));
    SyncFolder(path.has_parent_path() ? path.parent_path().string() : ".");
}

void Disk::SyncFolder(const std::string& folder) {
    const int opened = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    Need(opened >= 0);
    const bool synced = fsync(opened) == 0 || errno == EINVAL;
    const int error = errno;
    close(opened);
    errno = error;
    Need(synced);
}

bool Disk::IsBeingWritten(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) return false;
    const bool locked = flock(file, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    close(file);
    return locked;
}

Disk& SystemDisk() {
    static Disk disk;
    return disk;
}

}  // namespace kelvane::output

// Disk: the system calls that writing a file safely is made of, so that a failure of each can be
// tried.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kelvane::output {

class Disk {
public:
    virtual ~Disk() = default;

    // Each throws std::system_error when the system refuses. Paths are UTF-8.

    // Throws when there is a file that may not be written.
    virtual void CheckWritable(const std::string& path);
    // Makes a new file and returns its descriptor; fails when there is one. While it is open it is
    // locked, which shows that somebody is writing it.
    virtual int Create(const std::string& path);
    // Removes a file that Create() made and that its writer, killed, left behind; throws nothing.
    virtual void RemoveLeftBehind(const std::string& path);
    virtual void Write(int file, std::string_view bytes);
    // Gives the file the rights to read, write and execute of `model`, and no more of its mode; the
    // owner's alone to read and write when that is missing.
    virtual void CopyRights(int file, const std::string& model);
    virtual void Sync(int file);
    // Opens a file that is there, to go on writing it, locked as by Create(). Refused as busy while
    // somebody is writing it.
    virtual int Reopen(const std::string& path);
    // Leaves the first `length` bytes of the file; what is written next stands behind them.
    virtual void CutOff(int file, std::uintmax_t length);
    virtual void Close(int file);
    virtual void Rename(const std::string& from, const std::string& to);
    // Makes a folder for its owner alone, with those above it, unless it is there. That outlasts a
    // crash, too.
    virtual void MakeFolder(const std::string& folder);
    // What has happened in the folder outlasts a crash.
    virtual void SyncFolder(const std::string& folder);
    // Whether somebody has the file open that Create() or Reopen() gave him; throws nothing.
    virtual bool IsBeingWritten(const std::string& path);
};

// The system's own.
Disk& SystemDisk();

}  // namespace kelvane::output

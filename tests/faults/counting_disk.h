// The system's disk, of whose calls any one can fail. Nothing is synced: the power is not cut here.
#pragma once

#include <cerrno>
#include <string>
#include <string_view>
#include <system_error>

#include "adapters/output/files/disk.h"
#include "tests/faults/failing_calls.h"

namespace kelvane::faults {

class CountingDisk : public output::Disk {
public:
    // `calls` outlives the disk.
    explicit CountingDisk(FailingCalls& calls) : mCalls(calls) {}

    void CheckWritable(const std::string& path) override {
        Pass();
        Disk::CheckWritable(path);
    }
    int Create(const std::string& path) override {
        Pass();
        return Disk::Create(path);
    }
    void Write(int file, std::string_view bytes) override {
        try {
            Pass();
        } catch (const std::system_error&) {
            // As much as there was room for.
            Disk::Write(file, bytes.substr(0, bytes.size() / 2));
            throw;
        }
        Disk::Write(file, bytes);
    }
    void CopyRights(int file, const std::string& model) override {
        Pass();
        Disk::CopyRights(file, model);
    }
    void Sync(int /*file*/) override { Pass(); }
    int Reopen(const std::string& path) override {
        Pass();
        return Disk::Reopen(path);
    }
    void CutOff(int file, std::uintmax_t length) override {
        Pass();
        Disk::CutOff(file, length);
    }
    // A file is closed even when that is refused.
    void Close(int file) override {
        Disk::Close(file);
        Pass();
    }
    void Rename(const std::string& from, const std::string& to) override {
        Pass();
        Disk::Rename(from, to);
    }
    void MakeFolder(const std::string& folder) override {
        Pass();
        Disk::MakeFolder(folder);
    }
    void SyncFolder(const std::string& /*folder*/) override { Pass(); }

private:
    void Pass() {
        if (mCalls.Next(Call::Step)) throw std::system_error(EIO, std::generic_category());
    }

    FailingCalls& mCalls;
};

}  // namespace kelvane::faults

// FailingDisk: a disk on which one kind of call fails, as when it is full.
#pragma once

#include <cerrno>
#include <system_error>

#include "adapters/output/files/disk.h"

namespace kelvane::output_test {

class FailingDisk : public output::Disk {
public:
    enum class Call {
        CheckWritable,
        Create,
        Write,
        CopyRights,
        Sync,
        Reopen,
        CutOff,
        Rename,
        MakeFolder,
        SyncFolder
    };

    // The call succeeds so many times before it fails.
    explicit FailingDisk(Call failing, int before = 0) : mFailing(failing), mBefore(before) {}

    void CheckWritable(const std::string& path) override {
        Pass(Call::CheckWritable);
        Disk::CheckWritable(path);
    }
    int Create(const std::string& path) override {
        Pass(Call::Create);
        return Disk::Create(path);
    }
    void Write(int file, std::string_view bytes) override {
        Pass(Call::Write);
        Disk::Write(file, bytes);
    }
    void CopyRights(int file, const std::string& model) override {
        Pass(Call::CopyRights);
        Disk::CopyRights(file, model);
    }
    void Sync(int file) override {
        Pass(Call::Sync);
        Disk::Sync(file);
    }
    int Reopen(const std::string& path) override {
        Pass(Call::Reopen);
        return Disk::Reopen(path);
    }
    void CutOff(int file, std::uintmax_t length) override {
        Pass(Call::CutOff);
        Disk::CutOff(file, length);
    }
    void Rename(const std::string& from, const std::string& to) override {
        Pass(Call::Rename);
        Disk::Rename(from, to);
    }
    void MakeFolder(const std::string& folder) override {
        Pass(Call::MakeFolder);
        Disk::MakeFolder(folder);
    }
    void SyncFolder(const std::string& folder) override {
        Pass(Call::SyncFolder);
        Disk::SyncFolder(folder);
    }

private:
    void Pass(Call call) {
        if (call != mFailing || mBefore-- > 0) return;
        throw std::system_error(ENOSPC, std::generic_category());
    }

    Call mFailing;
    int mBefore;
};

}  // namespace kelvane::output_test

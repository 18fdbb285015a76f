// A disk whose power can be cut at any moment: of what was written since a file was synced an end
// is lost, and of what happened in folders since they were synced the last things are.
#pragma once

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "adapters/output/files/disk.h"

namespace kelvane::faults {

class CutDisk : public output::Disk {
public:
    // Called before and after each call that changes something.
    std::function<void()> stepped;

    // A file that is on the disk for long.
    void Know(const std::string& path) {
        std::ifstream input(path, std::ios::binary);
        auto file = std::make_shared<File>();
        file->content.assign(std::istreambuf_iterator<char>(input), {});
        file->synced = file->content.size();
        mStates.back()[path] = file;
    }

    // Makes `folder`, with the files as a power cut now could leave them.
    void Cut(const std::filesystem::path& folder, std::mt19937& random) const {
        std::filesystem::create_directories(folder);
        for (const auto& [path, file] : mStates[random() % mStates.size()]) {
            const std::size_t kept =
                file->synced + random() % (file->content.size() - file->synced + 1);
            std::ofstream(folder / std::filesystem::path(path).filename(), std::ios::binary)
                << file->content.substr(0, kept);
        }
    }

    int Create(const std::string& path) override {
        return Changed([&] {
            const int file = Disk::Create(path);
            mOpen[file] = std::make_shared<File>();
            mStates.push_back(mStates.back());
            mStates.back()[path] = mOpen[file];
            return file;
        });
    }
    void Write(int file, std::string_view bytes) override {
        Changed([&] {
            Disk::Write(file, bytes);
            mOpen.at(file)->content += bytes;
        });
    }
    void Sync(int file) override {
        Changed([&] { mOpen.at(file)->synced = mOpen.at(file)->content.size(); });
    }
    void Rename(const std::string& from, const std::string& to) override {
        Changed([&] {
            Disk::Rename(from, to);
            State next = mStates.back();
            next[to] = next.at(from);
            next.erase(from);
            mStates.push_back(std::move(next));
        });
    }
    void SyncFolder(const std::string& /*folder*/) override {
        Changed([&] { mStates.erase(mStates.begin(), mStates.end() - 1); });
    }

private:
    struct File {
        std::string content;
        std::size_t synced = 0;  // so many bytes of it
    };
    using State = std::map<std::string, std::shared_ptr<File>>;

    template <typename Work>
    std::invoke_result_t<Work> Changed(const Work& work) {
        const After after{stepped};
        if (stepped) stepped();
        return work();
    }
    struct After {
        const std::function<void()>& stepped;
        ~After() {
            if (stepped) stepped();
        }
    };

    // What folders hold: as it was when they were synced, and after each thing since.
    std::vector<State> mStates{{}};
    std::map<int, std::shared_ptr<File>> mOpen;
};

}  // namespace kelvane::faults

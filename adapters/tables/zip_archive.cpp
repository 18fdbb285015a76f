#include "adapters/tables/zip_archive.h"

#include <minizip/unzip.h>

#include <array>
#include <exception>
#include <utility>

#include "adapters/tables/limits.h"
#include "adapters/tables/refusal.h"
#include "platform/ascii.h"

namespace kelvane::tables {

// The archive as the library reads it. No exception passes through the library.
struct ZipArchive::Input {
    explicit Input(ByteSource& bytes) : source(bytes) {}

    ByteSource& source;
    std::uint64_t place = 0;
    std::exception_ptr failure;

    static Input& Of(void* input) { return *static_cast<Input*>(input); }

    static void* Open(void* input, const void* /*name*/, int /*mode*/) { return input; }

    static uLong Read(void* input, void* /*stream*/, void* to, uLong count) {
        Input& self = Of(input);
        try {
            const std::size_t read = self.source.Read(self.place, static_cast<char*>(to), count);
            self.place += read;
            return static_cast<uLong>(read);
        } catch (...) {
            self.failure = std::current_exception();
            return 0;
        }
    }

    static ZPOS64_T Tell(void* input, void* /*stream*/) { return Of(input).place; }

    static long Seek(void* input, void* /*stream*/, ZPOS64_T offset, int origin) {
        Input& self = Of(input);
        std::uint64_t from = 0;
        if (origin == ZLIB_FILEFUNC_SEEK_CUR) from = self.place;
        if (origin == ZLIB_FILEFUNC_SEEK_END) from = self.source.Size();
        if (offset > self.source.Size() - from) return -1;
        self.place = from + offset;
        return 0;
    }

    static int Close(void* /*input*/, void* /*stream*/) { return 0; }

    static int Failed(void* input, void* /*stream*/) { return Of(input).failure ? 1 : 0; }
};

ZipArchive::ZipArchive(ByteSource& source) : mInput(std::make_unique<Input>(source)) {
    zlib_filefunc64_def functions{};
    functions.zopen64_file = Input::Open;
    functions.zread_file = Input::Read;
    functions.ztell64_file = Input::Tell;
    functions.zseek64_file = Input::Seek;
    functions.zclose_file = Input::Close;
    functions.zerror_file = Input::Failed;
    functions.opaque = mInput.get();
    mArchive = unzOpen2_64("", &functions);
    if (mArchive == nullptr) RefuseDamaged();
    try {
        List();
    } catch (...) {
        unzClose(mArchive);
        throw;
    }
}

ZipArchive::~ZipArchive() {
    unzClose(mArchive);
}

void ZipArchive::List() {
    unz_global_info64 all{};
    Check(unzGetGlobalInfo64(mArchive, &all));
    if (all.number_entry > kMaxParts) throw Refusal("部件太多");
    int step = unzGoToFirstFile(mArchive);
    for (; step == UNZ_OK; step = unzGoToNextFile(mArchive)) {
        std::array<char, 512> name{};
        unz_file_info64 info{};
        unz64_file_pos place{};
        Check(unzGetCurrentFileInfo64(mArchive, &info, name.data(), name.size(), nullptr, 0,
                                      nullptr, 0));
        if (info.size_filename >= name.size()) RefuseDamaged();
        Check(unzGetFilePos64(mArchive, &place));
        const Entry entry{place.pos_in_zip_directory, place.num_of_file};
        // Which of two of one name is meant, programs decide differently.
        if (!mEntries.emplace(platform::LowerAscii(name.data()), entry).second) RefuseDamaged();
    }
    if (step != UNZ_END_OF_LIST_OF_FILE) RefuseDamaged();
}

bool ZipArchive::Has(std::string_view name) const {
    return mEntries.contains(platform::LowerAscii(name));
}

void ZipArchive::Open(std::string_view name) {
    mPart = name;
    const auto found = mEntries.find(platform::LowerAscii(name));
    if (found == mEntries.end()) throw Refusal("已损坏：缺少部件 " + mPart);
    const unz64_file_pos place{found->second.place, found->second.number};
    unz_file_info64 info{};
    Check(unzGoToFilePos64(mArchive, &place));
    Check(unzGetCurrentFileInfo64(mArchive, &info, nullptr, 0, nullptr, 0, nullptr, 0));
    if ((info.flag & 1U) != 0) throw Refusal("已加密，请取消密码后另存");
    if (info.compression_method != 0 && info.compression_method != Z_DEFLATED) RefuseDamaged();
    mOpen = &found->second;
    mSaid = info.uncompressed_size;
    mRead = 0;
    if (mSaid > kMaxBytes) throw Refusal("展开后太大");
    Check(unzOpenCurrentFile(mArchive));
}

std::size_t ZipArchive::Read(char* to, std::size_t count) {
    const int read = unzReadCurrentFile(mArchive, to, static_cast<unsigned>(count));
    if (read < 0) RefuseDamaged();
    mRead += static_cast<unsigned>(read);
    Spend(mRead);
    return static_cast<std::size_t>(read);
}

void ZipArchive::Spend(std::uint64_t bytes) {
    if (bytes <= mOpen->spent) return;
    mSpent += bytes - mOpen->spent;
    mOpen->spent = bytes;
    if (mSpent > kMaxBytes) throw Refusal("展开后太大");
}

void ZipArchive::Finish() {
    std::array<char, 4096> rest{};
    while (Read(rest.data(), rest.size()) > 0) {
    }
    if (mRead != mSaid) RefuseDamaged();
    Check(unzCloseCurrentFile(mArchive));
}

void ZipArchive::Close() {
    unzCloseCurrentFile(mArchive);
}

void ZipArchive::Check(int result) {
    if (result != UNZ_OK) RefuseDamaged();
}

void ZipArchive::RefuseDamaged() {
    if (mInput->failure) std::rethrow_exception(mInput->failure);
    throw Refusal(mPart.empty() ? "已损坏，或不是 .xlsx 工作簿" : "已损坏：" + mPart);
}

}  // namespace kelvane::tables

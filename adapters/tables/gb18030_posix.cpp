// With the C library's own conversion.
#include <iconv.h>

#include <array>
#include <cstddef>

#include "adapters/tables/gb18030.h"
#include "adapters/tables/refusal.h"

namespace kelvane::tables {

namespace {

class Converter {
public:
    Converter() : mConverter(iconv_open("UTF-8", "GB18030")) {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): so the interface says that there is none.
        if (mConverter == reinterpret_cast<iconv_t>(-1)) throw Refusal("系统不能读取 GB18030 文字");
    }
    ~Converter() { iconv_close(mConverter); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool Append(std::string_view text, std::string& utf8) {
        // The interface takes what it does not write as writable.
        char* from = const_cast<char*>(text.data());
        std::size_t left = text.size();
        std::array<char, 8192> block{};
        while (left > 0) {
            const std::size_t before = left;
            char* to = block.data();
            std::size_t room = block.size();
            iconv(mConverter, &from, &left, &to, &room);
            utf8.append(block.data(), block.size() - room);
            if (left == before) return false;
        }
        return true;
    }

private:
    iconv_t mConverter;
};

}  // namespace

bool AppendGb18030(std::string_view text, std::string& utf8) {
    return Converter().Append(text, utf8);
}

}  // namespace kelvane::tables

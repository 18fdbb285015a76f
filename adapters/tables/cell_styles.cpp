#include "adapters/tables/cell_styles.h"

#include <limits>
#include <map>

#include "adapters/tables/date_format.h"
#include "adapters/tables/limits.h"
#include "adapters/tables/refusal.h"
#include "adapters/tables/xml_stream.h"

namespace kelvane::tables {

namespace {

class Reader : public XmlHandler {
public:
    bool Begin(std::string_view name, const XmlAttributes& attributes) override {
        if (name == "numFmts" || name == "cellXfs") {
            mInStyles = name == "cellXfs";
            return true;
        }
        if (name == "numFmt" && !mInStyles) {
            mOwn[Number(attributes)] = IsDateFormat(attributes.Find("formatCode"));
        } else if (name == "xf" && mInStyles) {
            mFormats.push_back(Number(attributes));
        }
        if (mOwn.size() + mFormats.size() > kMaxFormats) throw Refusal("格式太多");
        return false;
    }

    // A program's own format stands in front of the one that all know by its number.
    std::vector<bool> Styles() const {
        std::vector<bool> styles;
        for (const int format : mFormats) {
            const auto own = mOwn.find(format);
            styles.push_back(own == mOwn.end() ? IsBuiltInDateFormat(format) : own->second);
        }
        return styles;
    }

private:
    static int Number(const XmlAttributes& attributes) {
        const std::string_view value = attributes.Find("numFmtId");
        return value.empty() ? 0 : NumberOf(value, std::numeric_limits<int>::max());
    }

    bool mInStyles = false;
    std::map<int, bool> mOwn;
    std::vector<int> mFormats;
};

}  // namespace

std::vector<bool> ReadDateStyles(ZipArchive& archive, std::string_view name) {
    Reader reader;
    ReadXml(archive, name, "styleSheet", reader);
    return reader.Styles();
}

}  // namespace kelvane::tables

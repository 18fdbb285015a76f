#include "adapters/tables/custom_properties.h"

#include <string_view>
#include <utility>

#include "adapters/tables/limits.h"
#include "adapters/tables/refusal.h"
#include "adapters/tables/string_items.h"
#include "adapters/tables/xml_stream.h"

namespace kelvane::tables {

namespace {

class Reader : public XmlHandler {
public:
    // The values' own one.
    bool Knows(std::string_view space) override { return space.ends_with("/docPropsVTypes"); }

    bool Begin(std::string_view name, const XmlAttributes& attributes) override {
        if (mDepth == 0) {
            if (name != "property") return false;
            if (found.size() == kMaxProperties) throw Refusal("属性太多");
            mName = attributes.Find("name");
            mText.clear();
        }
        // A list of values is none that anybody wrote here.
        if (mDepth > 1) return false;
        ++mDepth;
        return true;
    }

    void End(std::string_view /*name*/) override {
        if (mDepth == 0 || --mDepth > 0) return;
        if (!found.emplace(mName, WithWrittenCharacters(mText)).second) {
            throw Refusal("已损坏：一个属性有两次");
        }
    }

    void Text(std::string_view text) override {
        constexpr int kInValue = 2;
        if (mDepth < kInValue) return;
        mText += text;
        if (mText.size() > kMaxCellBytes) throw Refusal("一个属性中的文字太长");
    }

    std::map<std::string, std::string> found;

private:
    int mDepth = 0;
    std::string mName;
    std::string mText;
};

}  // namespace

std::string PartOfProperties(const std::vector<Relationship>& roots) {
    const Relationship* link = FindRelationship(roots, "custom-properties");
    // As the stricter form of the format has it.
    if (link == nullptr) link = FindRelationship(roots, "customProperties");
    if (link == nullptr) return {};
    if (link->external || link->target.empty()) throw Refusal("已损坏：属性不在文件中");
    return link->target;
}

std::map<std::string, std::string> ReadProperties(ZipArchive& archive, const std::string& part) {
    Reader reader;
    ReadXml(archive, part, "Properties", reader);
    return std::move(reader.found);
}

}  // namespace kelvane::tables

#include "adapters/tables/relationships.h"

#include <algorithm>

#include "adapters/tables/refusal.h"
#include "adapters/tables/xml_stream.h"

namespace kelvane::tables {

namespace {

// The folder of a part, with the slash behind it.
std::string_view FolderOf(std::string_view name) {
    return name.substr(0, name.rfind('/') + 1);
}

std::string PartOf(std::string_view name, std::string_view target) {
    std::string whole(target.starts_with('/') ? std::string_view() : FolderOf(name));
    whole += target;
    std::replace(whole.begin(), whole.end(), '\\', '/');
    std::vector<std::string_view> steps;
    for (std::string_view rest = whole; !rest.empty();) {
        const std::string_view step = rest.substr(0, rest.find('/'));
        rest.remove_prefix(std::min(step.size() + 1, rest.size()));
        if (step == ".." && !steps.empty()) steps.pop_back();
        if (step != ".." && step != "." && !step.empty()) steps.push_back(step);
    }
    std::string part;
    for (const std::string_view step : steps) part.append(part.empty() ? "" : "/").append(step);
    return part;
}

class Reader : public XmlHandler {
public:
    explicit Reader(std::string_view name) : mName(name) {}

    bool Begin(std::string_view name, const XmlAttributes& attributes) override {
        if (name != "Relationship") return false;
        const std::string_view target = attributes.Find("Target");
        const bool external = attributes.Find("TargetMode") == "External";
        found.push_back({std::string(attributes.Find("Id")), std::string(attributes.Find("Type")),
                         external ? std::string() : PartOf(mName, target), external});
        return false;
    }

    std::vector<Relationship> found;

private:
    std::string_view mName;
};

}  // namespace

std::vector<Relationship> ReadRelationships(ZipArchive& archive, std::string_view name) {
    const std::string_view folder = FolderOf(name);
    const std::string part =
        std::string(folder) + "_rels/" + std::string(name.substr(folder.size())) + ".rels";
    Reader reader(name);
    ReadXml(archive, part, "Relationships", reader);
    return std::move(reader.found);
}

const Relationship* FindRelationship(const std::vector<Relationship>& all, std::string_view kind) {
    const auto found = std::find_if(all.begin(), all.end(), [kind](const Relationship& each) {
        const std::string_view type = each.type;
        return type.substr(type.rfind('/') + 1) == kind;
    });
    return found == all.end() ? nullptr : &*found;
}

}  // namespace kelvane::tables

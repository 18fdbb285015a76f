#include "adapters/com/member_names.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "adapters/com/wide_text.h"
#include "platform/ascii.h"
#include "platform/host.h"

namespace kelvane::com {

namespace {

struct KnownMember {
    std::string_view section;
    std::string_view name;
};

// In the order of the enumeration.
constexpr std::array<KnownMember, static_cast<std::size_t>(Member::Count)> kKnown{{
    {"Login", "ConnectionString"},
    {"Login", "UserId"},
    {"Login", "ExemptFromCenterAuth"},
    {"Login", "Year"},
    {"Environment", "Unit"},
    {"Environment", "Operator"},
    {"Environment", "Account"},
    {"Environment", "DataAccess"},
    {"Environment", "ModuleSetting"},
    {"Environment", "HostPath"},
    {"Unit", "Name"},
    {"Operator", "Name"},
    {"Account", "Year"},
    {"Account", "YearStart"},
    {"Account", "PeriodOf"},
    {"Account", "PeriodStart"},
    {"DataAccess", "Query"},
}};

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsSection(std::string_view name) {
    return std::ranges::any_of(kKnown, [&](const KnownMember& each) {
        return platform::EqualIgnoringCase(each.section, name);
    });
}

platform::HostError Refused(std::string_view reason, std::string_view line) {
    return platform::HostError("Kelvane.ini：" + std::string(reason) + "：" + std::string(line));
}

}  // namespace

MemberNames::MemberNames() {
    std::ranges::transform(kKnown, mNames.begin(),
                           [](const KnownMember& each) { return std::string(each.name); });
}

void MemberNames::Replace(std::string_view section, std::string_view name,
                          std::string_view hostName) {
    const auto* const found = std::ranges::find_if(kKnown, [&](const KnownMember& each) {
        return platform::EqualIgnoringCase(each.section, section) &&
               platform::EqualIgnoringCase(each.name, name);
    });
    if (found == kKnown.end()) {
        throw Refused("不认识的名称", "[" + std::string(section) + "] " + std::string(name));
    }
    mNames[static_cast<std::size_t>(found - kKnown.begin())] = hostName;
}

MemberNames MemberNames::Parse(std::string_view text) {
    MemberNames names;
    std::string_view section;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const std::string_view line = Trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.empty() || line.front() == ';' || line.front() == '#') continue;
        if (line.front() == '[' && line.back() == ']') {
            section = Trimmed(line.substr(1, line.size() - 2));
            if (!IsSection(section)) throw Refused("不认识的对象", line);
            continue;
        }
        const auto equals = line.find('=');
        const bool whole = equals != std::string_view::npos &&
                           !Trimmed(line.substr(0, equals)).empty() &&
                           !Trimmed(line.substr(equals + 1)).empty();
        if (!whole || section.empty()) throw Refused("不能识别的行", line);
        names.Replace(section, Trimmed(line.substr(0, equals)), Trimmed(line.substr(equals + 1)));
    }
    return names;
}

MemberNames MemberNames::Load(const std::filesystem::path& path) {
    std::error_code missing;
    if (!std::filesystem::exists(path, missing)) return {};
    std::ifstream file(path, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (!file) throw platform::HostError("Kelvane.ini：不能读取");
    if (bytes.starts_with("\xEF\xBB\xBF")) return Parse(std::string_view(bytes).substr(3));
    if (!bytes.starts_with("\xFF\xFE")) return Parse(bytes);
    std::wstring wide;
    for (std::size_t at = 2; at + 1 < bytes.size(); at += 2) {
        const auto low = static_cast<unsigned char>(bytes[at]);
        const auto high = static_cast<unsigned char>(bytes[at + 1]);
        wide += static_cast<wchar_t>(low | (high << 8U));
    }
    return Parse(NarrowText(wide));
}

}  // namespace kelvane::com

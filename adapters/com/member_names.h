// What the host calls the members of its objects: known by default, and replaced line by line in
// the file Kelvane.ini beside the component.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

namespace kelvane::com {

enum class Member {
    LoginConnectionString,
    LoginUserId,
    LoginExempt,
    LoginYear,
    EnvironmentUnit,
    EnvironmentOperator,
    EnvironmentAccount,
    EnvironmentDataAccess,
    EnvironmentModuleSetting,
    EnvironmentHostPath,
    UnitName,
    OperatorName,
    AccountYear,
    AccountYearStart,
    AccountPeriodOf,
    AccountPeriodStart,
    DataAccessQuery,
    Count,
};

class MemberNames {
public:
    // The default names.
    MemberNames();

    // The default names with those that `text` (UTF-8) replaces: sections "[Object]", lines
    // "Name = host's name" in them, comments behind ";" or "#". Throws platform::HostError with the
    // line for a section or name that is not known and for a line that is neither.
    static MemberNames Parse(std::string_view text);

    // The same from a file in UTF-8, or in UTF-16 with its mark; a file that is not there replaces
    // nothing. Throws also when it cannot be read.
    static MemberNames Load(const std::filesystem::path& path);

    // A name, or several joined by dots: a member of a member.
    const std::string& Of(Member member) const { return mNames[static_cast<std::size_t>(member)]; }

private:
    void Replace(std::string_view section, std::string_view name, std::string_view hostName);

    std::array<std::string, static_cast<std::size_t>(Member::Count)> mNames;
};

}  // namespace kelvane::com

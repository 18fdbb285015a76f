#include "adapters/com/host_objects.h"

#include <limits>
#include <utility>

#include "adapters/com/ado_record_set.h"
#include "adapters/com/automation_value.h"
#include "platform/decimal.h"

namespace kelvane::com {

namespace {

using platform::DateTime;
using platform::HostError;
using platform::Value;

// The object in front of the last dot of `path`, and what stands behind that dot.
std::pair<DispatchObject, std::string_view> Walk(DispatchObject object, std::string_view path) {
    for (auto dot = path.find('.'); dot != std::string_view::npos; dot = path.find('.')) {
        object = object.Object(path.substr(0, dot));
        path.remove_prefix(dot + 1);
    }
    return {std::move(object), path};
}

bool IsTrue(const Variant& answer) {
    Variant flag;
    const HRESULT code = VariantChangeTypeEx(flag.Receive(), const_cast<VARIANT*>(&answer.Get()),
                                             LOCALE_INVARIANT, 0, VT_BOOL);
    if (FAILED(code)) throw std::invalid_argument("不是真假值");
    return V_BOOL(&flag.Get()) != VARIANT_FALSE;
}

}  // namespace

Variant HostObject::Answer(Member member, const Arguments& arguments) const try {
    const auto [object, name] = Walk(mObject, mNames->Of(member));
    return arguments.empty() ? object.Get(name) : object.Call(name, arguments);
} catch (const DispatchError& error) {
    throw HostError(error.what());
}

template <typename Conversion>
auto HostObject::Converted(Member member, const Arguments& arguments, Conversion conversion) const {
    const Variant answer = Answer(member, arguments);
    try {
        return conversion(answer);
    } catch (const std::exception& error) {
        throw HostError(Name() + "." + mNames->Of(member) + "：" + error.what());
    }
}

std::string HostObject::Text(Member member, const Arguments& arguments) const {
    return Converted(member, arguments,
                     [](const Variant& answer) { return ToValue(answer.Get()).ToText(); });
}

int HostObject::Integer(Member member, const Arguments& arguments) const {
    return Converted(member, arguments, [](const Variant& answer) {
        const Value value = ToValue(answer.Get());
        if (value.IsNull()) throw std::invalid_argument("没有值");
        const auto* text = value.As<std::string>();
        if (text != nullptr && !platform::Decimal::FromText(*text)) {
            throw std::invalid_argument("不是数字");
        }
        const std::int64_t number = value.ToInteger();
        if (!std::in_range<int>(number)) throw std::range_error("数字溢出");
        return static_cast<int>(number);
    });
}

bool HostObject::Flag(Member member) const {
    return Converted(member, {}, IsTrue);
}

DateTime HostObject::Date(Member member, const Arguments& arguments) const {
    return Converted(member, arguments,
                     [](const Variant& answer) { return ToValue(answer.Get()).ToDateTime(); });
}

HostObject HostObject::Part(Member member) const {
    const std::string& name = mNames->Of(member);
    try {
        const auto [object, last] = Walk(mObject, name);
        DispatchObject part = object.Object(last);
        if (!part) throw DispatchError(object.Name(), last, "对象不存在", E_POINTER);
        return {std::move(part), *mNames};
    } catch (const DispatchError& error) {
        throw HostError(error.what());
    }
}

void HostObject::Require(Member member) const try {
    const auto [object, name] = Walk(mObject, mNames->Of(member));
    object.Require(name);
} catch (const DispatchError& error) {
    throw HostError(error.what());
}

void DispatchLogin::CheckMembers() const {
    (void)ConnectionString();
    (void)UserId();
    (void)IsExemptFromCenterAuth();
    (void)Year();
}

void DispatchEnvironment::CheckMembers() const {
    (void)Name();
    (void)mOperator.Name();
    (void)Year();
    const HostObject account = mEnvironment.Part(Member::EnvironmentAccount);
    for (const Member member :
         {Member::AccountYearStart, Member::AccountPeriodOf, Member::AccountPeriodStart}) {
        account.Require(member);
    }
    mEnvironment.Part(Member::EnvironmentDataAccess).Require(Member::DataAccessQuery);
    mEnvironment.Require(Member::EnvironmentModuleSetting);
    mEnvironment.Require(Member::EnvironmentHostPath);
}

std::string DispatchEnvironment::NamedOperator::Name() const {
    return mEnvironment.Part(Member::EnvironmentOperator).Text(Member::OperatorName);
}

std::string DispatchEnvironment::Name() const {
    return mEnvironment.Part(Member::EnvironmentUnit).Text(Member::UnitName);
}

int DispatchEnvironment::Year() const {
    return mEnvironment.Part(Member::EnvironmentAccount).Integer(Member::AccountYear);
}

DateTime DispatchEnvironment::YearStart(int year) const {
    return mEnvironment.Part(Member::EnvironmentAccount)
        .Date(Member::AccountYearStart, {Variant::OfInteger(year)});
}

int DispatchEnvironment::PeriodOf(const DateTime& date) const {
    return mEnvironment.Part(Member::EnvironmentAccount)
        .Integer(Member::AccountPeriodOf, {ToVariant(Value(date))});
}

DateTime DispatchEnvironment::PeriodStart(const DateTime& date) const {
    return mEnvironment.Part(Member::EnvironmentAccount)
        .Date(Member::AccountPeriodStart, {ToVariant(Value(date))});
}

std::string DispatchEnvironment::ModuleSetting(std::string_view module, std::string_view name) {
    return mEnvironment.Text(Member::EnvironmentModuleSetting,
                             {Variant::OfText(module), Variant::OfText(name)});
}

std::string DispatchEnvironment::HostPath() const {
    return mEnvironment.Text(Member::EnvironmentHostPath);
}

// What fails in the host's Query is the database's refusal that the host passes on, so the library
// gets it as an error of the database and not of the host.
std::unique_ptr<platform::RecordSet> DispatchEnvironment::DoQuery(const std::string& statement,
                                                                  int option) {
    const HostObject access = mEnvironment.Part(Member::EnvironmentDataAccess);
    try {
        return TakeRecordSet(access.Answer(Member::DataAccessQuery, {Variant::OfText(statement),
                                                                     Variant::OfInteger(option)}),
                             nullptr, access.Name());
    } catch (const HostError& error) {
        throw platform::DatabaseError(error.what());
    }
}

}  // namespace kelvane::com

// The host's login and environment objects as the library asks for them, read late bound by the
// names that the host gives their members.
#pragma once

#include <string>
#include <string_view>

#include "adapters/com/dispatch_object.h"
#include "adapters/com/member_names.h"
#include "platform/host.h"

namespace kelvane::com {

// One of the host's objects. What it cannot answer throws platform::HostError with the names of the
// object and the member.
class HostObject {
public:
    // `names` must outlive the object.
    HostObject(DispatchObject object, const MemberNames& names)
        : mObject(std::move(object)), mNames(&names) {}

    std::string Text(Member member, const Arguments& arguments = {}) const;
    int Integer(Member member, const Arguments& arguments = {}) const;
    bool Flag(Member member) const;
    platform::DateTime Date(Member member, const Arguments& arguments) const;
    // An object that must be there.
    HostObject Part(Member member) const;
    // Whatever the member gives, objects included.
    Variant Answer(Member member, const Arguments& arguments) const;
    // Throws platform::HostError unless the object has the member; does not ask for its value.
    void Require(Member member) const;

    const std::string& Name() const { return mObject.Name(); }

private:
    template <typename Conversion>
    auto Converted(Member member, const Arguments& arguments, Conversion conversion) const;

    DispatchObject mObject;
    const MemberNames* mNames;
};

class DispatchLogin : public platform::HostLogin {
public:
    // `names` must outlive the login.
    DispatchLogin(ComPointer<IDispatch> login, const MemberNames& names)
        : mLogin({std::move(login), "objLogin"}, names) {}

    std::string ConnectionString() const override {
        return mLogin.Text(Member::LoginConnectionString);
    }
    std::string UserId() const override { return mLogin.Text(Member::LoginUserId); }
    bool IsExemptFromCenterAuth() const override { return mLogin.Flag(Member::LoginExempt); }
    int Year() const override { return mLogin.Integer(Member::LoginYear); }

    // Throws platform::HostError for the first member that is missing or does not give what it has
    // to.
    void CheckMembers() const;

private:
    HostObject mLogin;
};

// Its parts are asked for anew each time, as a host may replace them.
class DispatchEnvironment : public platform::HostEnvironment,
                            private platform::HostUnit,
                            private platform::HostAccount,
                            private platform::HostDataAccess {
public:
    // `names` must outlive the environment.
    DispatchEnvironment(ComPointer<IDispatch> environment, const MemberNames& names)
        : mEnvironment({std::move(environment), "objEnv"}, names), mOperator(mEnvironment) {}

    // From now on this environment answers with `observer`, which stands in front of its data
    // access and outlives it.
    void SetDataAccess(platform::HostDataAccess& observer) { mDataAccess = &observer; }

    // The same as for the login; members with arguments only have to be there.
    void CheckMembers() const;

    platform::HostUnit& Unit() override { return *this; }
    platform::HostOperator& Operator() override { return mOperator; }
    platform::HostAccount& Account() override { return *this; }
    platform::HostDataAccess& DataAccess() override { return *mDataAccess; }
    std::string ModuleSetting(std::string_view module, std::string_view name) override;
    std::string HostPath() const override;

private:
    class NamedOperator : public platform::HostOperator {
    public:
        explicit NamedOperator(const HostObject& environment) : mEnvironment(environment) {}
        std::string Name() const override;

    private:
        const HostObject& mEnvironment;
    };

    std::string Name() const override;  // the unit's
    int Year() const override;
    platform::DateTime YearStart(int year) const override;
    int PeriodOf(const platform::DateTime& date) const override;
    platform::DateTime PeriodStart(const platform::DateTime& date) const override;
    std::unique_ptr<platform::RecordSet> DoQuery(const std::string& statement, int option) override;

    HostObject mEnvironment;
    NamedOperator mOperator;
    platform::HostDataAccess* mDataAccess = this;
};

}  // namespace kelvane::com

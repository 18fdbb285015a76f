#include "tests/windows/host_process/host_objects.h"

namespace kelvane::windows_test {

namespace {

constexpr long kClientSide = 3;

Variant True() {
    VARIANT flag;
    V_VT(&flag) = VT_BOOL;
    V_BOOL(&flag) = VARIANT_TRUE;
    return Variant(flag);
}

FakeObject::Function Always(const Variant& answer) {
    return [answer](const FakeObject::Arguments&) { return answer; };
}

}  // namespace

HostObjects::HostObjects(const std::string& connectionString)
    : mConnection(com::DispatchObject::Create("ADODB.Connection")) {
    mConnection.Put("CursorLocation", Variant::OfInteger(kClientSide));
    mConnection.Call("Open", {Variant::OfText(connectionString)});

    mLogin.AddProperty("ConnectionString", Variant::OfText(connectionString));
    mLogin.AddProperty("UserId", Variant::OfText("zhang"));
    mLogin.AddProperty("ExemptFromCenterAuth", True());
    mLogin.AddProperty("Year", Variant::OfInteger(2004));
    mUnit.AddProperty("Name", Variant::OfText("测试单位"));
    mOperator.AddProperty("Name", Variant::OfText("张三"));
    mAccount.AddProperty("Year", Variant::OfInteger(2004));
    mAccount.Add("YearStart", DISPATCH_METHOD, Always(Variant::OfText("2004-01-01")));
    mAccount.Add("PeriodOf", DISPATCH_METHOD, Always(Variant::OfInteger(7)));
    mAccount.Add("PeriodStart", DISPATCH_METHOD, Always(Variant::OfText("2004-07-01")));
    mDataAccess.Add("Query", DISPATCH_METHOD, [this](const FakeObject::Arguments& arguments) {
        return Query(arguments.at(0));
    });
    mEnvironment.AddProperty("Unit", Variant::OfObject(&mUnit));
    mEnvironment.AddProperty("Operator", Variant::OfObject(&mOperator));
    mEnvironment.AddProperty("Account", Variant::OfObject(&mAccount));
    mEnvironment.AddProperty("DataAccess", Variant::OfObject(&mDataAccess));
    mEnvironment.AddProperty("HostPath", Variant::OfText("C:\\host"));
    mEnvironment.Add("ModuleSetting", DISPATCH_METHOD, Always(Variant::OfText("2004-07-01")));
}

Variant HostObjects::Query(const Variant& statement) {
    if (atQuery) std::exchange(atQuery, {})();
    const auto rows = com::DispatchObject::Create("ADODB.Recordset");
    rows.Call("Open", {statement, Variant::OfObject(mConnection.Get()),
                       Variant::OfInteger(kClientSide), Variant::OfInteger(1)});
    return Variant::OfObject(rows.Get());
}

}  // namespace kelvane::windows_test

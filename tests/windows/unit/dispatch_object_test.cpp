#include "adapters/com/dispatch_object.h"

#include <gtest/gtest.h>

#include "adapters/com/automation_value.h"
#include "tests/windows/unit/fake_object.h"

namespace kelvane::com {
namespace {

using windows_test::FakeObject;
using windows_test::Refusal;

std::string TextOf(const Variant& variant) {
    return ToValue(variant.Get()).ToText();
}

template <typename Work>
std::string ErrorOf(Work work) {
    try {
        work();
    } catch (const DispatchError& error) {
        return error.what();
    }
    return "";
}

class DispatchObjectTest : public testing::Test {
protected:
    FakeObject fake;
    DispatchObject object{fake.Pointer(), "objEnv"};
};

TEST_F(DispatchObjectTest, AsksForAPropertyAlone) {
    fake.AddProperty("Name", Variant::OfText("单位"));
    EXPECT_EQ(TextOf(object.Get("Name")), "单位");
    EXPECT_EQ(fake.calls, std::vector<std::string>{"2 Name"});
}

TEST_F(DispatchObjectTest, TakesAFunctionWhereAPropertyIsExpected) {
    fake.Add("Name", DISPATCH_METHOD, [](auto&) { return Variant::OfText("x"); });
    EXPECT_EQ(TextOf(object.Get("Name")), "x");
    EXPECT_EQ(fake.calls, (std::vector<std::string>{"2 Name", "1 Name"}));
}

TEST_F(DispatchObjectTest, TakesAPropertyWhereAFunctionIsExpected) {
    fake.Add("YearStart", DISPATCH_PROPERTYGET,
             [](const FakeObject::Arguments& arguments) { return arguments.at(0); });
    EXPECT_EQ(TextOf(object.Call("YearStart", {Variant::OfInteger(2004)})), "2004");
}

TEST_F(DispatchObjectTest, KeepsTheOrderOfArguments) {
    fake.Add("Setting", DISPATCH_METHOD, [](const FakeObject::Arguments& arguments) {
        return Variant::OfText(TextOf(arguments.at(0)) + "," + TextOf(arguments.at(1)));
    });
    EXPECT_EQ(TextOf(object.Call("Setting", {Variant::OfText("PM"), Variant::OfInteger(2)})),
              "PM,2");
}

TEST_F(DispatchObjectTest, PutsProperties) {
    std::string given;
    fake.Add("Value", DISPATCH_PROPERTYPUT, [&](const FakeObject::Arguments& arguments) {
        given = TextOf(arguments.at(0));
        return Variant();
    });
    object.Put("Value", Variant::OfText("新"));
    EXPECT_EQ(given, "新");
}

TEST_F(DispatchObjectTest, ReachesObjectsThatAnswerByTheExtendedInterfaceAlone) {
    fake.extendedOnly = true;
    fake.AddProperty("CONNECTIONSTRING", Variant::OfText("x"));
    EXPECT_EQ(TextOf(object.Get("ConnectionString")), "x");
}

TEST_F(DispatchObjectTest, NamesObjectAndMemberInErrors) {
    fake.Add("Open", DISPATCH_METHOD, [](auto&) -> Variant { throw Refusal{E_FAIL, "不行"}; });
    fake.AddProperty("Year", Variant::OfInteger(2004));
    EXPECT_EQ(ErrorOf([&] { object.Get("Unit"); }), "objEnv.Unit：对象没有这个成员");
    EXPECT_EQ(ErrorOf([&] { object.Call("Open"); }), "objEnv.Open：不行");
    EXPECT_EQ(ErrorOf([&] { object.Object("Year"); }), "objEnv.Year：得到的不是对象");
    EXPECT_EQ(ErrorOf([&] { DispatchObject({}, "objLogin").Get("Year"); }),
              "objLogin.Year：对象不存在");
}

TEST_F(DispatchObjectTest, GivesPartsTheirPath) {
    FakeObject unit;
    fake.AddProperty("Unit", Variant::OfObject(&unit));
    fake.AddProperty("Nothing", Variant::OfObject(nullptr));
    EXPECT_EQ(ErrorOf([&] { object.Object("Unit").Get("Name"); }),
              "objEnv.Unit.Name：对象没有这个成员");
    EXPECT_FALSE(object.Object("Nothing"));
}

TEST_F(DispatchObjectTest, ReleasesWhatItHeld) {
    FakeObject unit;
    {
        FakeObject owner;
        owner.Add("Unit", DISPATCH_PROPERTYGET, [&](auto&) { return Variant::OfObject(&unit); });
        const DispatchObject held = DispatchObject(owner.Pointer(), "x").Object("Unit");
        EXPECT_EQ(unit.References(), 2U);
    }
    EXPECT_EQ(unit.References(), 1U);
}

}  // namespace
}  // namespace kelvane::com

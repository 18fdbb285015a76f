#include "adapters/com/call_arguments.h"

#include <gtest/gtest.h>

#include "adapters/com/error_report.h"
#include "tests/windows/unit/fake_object.h"

namespace kelvane::com {
namespace {

using windows_test::FakeObject;

class CallArgumentsTest : public testing::Test {
protected:
    // Whether an object in this form is taken as the fake one.
    bool IsTaken(VARIANT form) {
        DISPPARAMS parameters{&form, nullptr, 1, 0};
        return CallArguments(parameters, "Init").Object(0, "objLogin").Get() == &fake;
    }
    std::string RefusalOf(VARIANT form, bool text = false) {
        DISPPARAMS parameters{&form, nullptr, 1, 0};
        const CallArguments arguments(parameters, "Init");
        try {
            if (text) {
                arguments.Text(0, "AppPath");
            } else {
                arguments.Object(0, "objLogin");
            }
        } catch (const ArgumentError& error) {
            return error.what();
        }
        return "";
    }

    FakeObject fake;
};

TEST_F(CallArgumentsTest, TakesObjectsInEveryForm) {
    IDispatch* dispatch = &fake;
    IUnknown* unknown = &fake;
    VARIANT form;
    V_VT(&form) = VT_DISPATCH;
    V_DISPATCH(&form) = dispatch;
    EXPECT_TRUE(IsTaken(form));
    VARIANT variable = form;
    V_VT(&form) = VT_UNKNOWN;
    V_UNKNOWN(&form) = unknown;
    EXPECT_TRUE(IsTaken(form));
    V_VT(&form) = VT_BYREF | VT_DISPATCH;
    V_DISPATCHREF(&form) = &dispatch;
    EXPECT_TRUE(IsTaken(form));
    V_VT(&form) = VT_BYREF | VT_UNKNOWN;
    V_UNKNOWNREF(&form) = &unknown;
    EXPECT_TRUE(IsTaken(form));
    V_VT(&form) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&form) = &variable;
    EXPECT_TRUE(IsTaken(form));
    VARIANT reference;
    V_VT(&reference) = VT_BYREF | VT_DISPATCH;
    V_DISPATCHREF(&reference) = &dispatch;
    V_VARIANTREF(&form) = &reference;
    EXPECT_TRUE(IsTaken(form));
    EXPECT_EQ(fake.References(), 1U);
}

TEST_F(CallArgumentsTest, RefusesWhatIsNoObject) {
    EXPECT_EQ(RefusalOf(VARIANT(Variant().Get())), "Init：参数 objLogin 不是对象");
    EXPECT_EQ(RefusalOf(Variant::OfInteger(1).Get()), "Init：参数 objLogin 不是对象");
    EXPECT_EQ(RefusalOf(Variant::OfObject(nullptr).Get()),
              "Init：参数 objLogin 没有对象，或对象没有 IDispatch 接口");
    EXPECT_EQ(RefusalOf(Variant::OfInteger(1).Get(), true), "Init：参数 AppPath 不是文本");
}

TEST_F(CallArgumentsTest, FindsArgumentsByPlaceAndByName) {
    const Variant first = Variant::OfText("甲");
    const Variant second = Variant::OfText("乙");
    VARIANT reversed[] = {second.Get(), first.Get()};
    DISPPARAMS byPlace{reversed, nullptr, 2, 0};
    EXPECT_EQ(CallArguments(byPlace, "M").Text(0, "a"), "甲");
    EXPECT_EQ(CallArguments(byPlace, "M").Text(1, "b"), "乙");
    DISPID names[] = {0, 1};
    DISPPARAMS byName{reversed, names, 2, 2};
    EXPECT_EQ(CallArguments(byName, "M").Text(0, "a"), "乙");
    EXPECT_EQ(CallArguments(byName, "M").Text(1, "b"), "甲");
}

}  // namespace
}  // namespace kelvane::com

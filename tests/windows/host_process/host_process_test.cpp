// The component in a host's process: early bound, on the host's thread, beside the host's window.
// KELVANE_TEST_ACCOUNT holds the account's connection string, KELVANE_TEST_COMPONENT the
// component's path, and an operator script works the windows (KELVANE_DRIVE).

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "adapters/com/wide_text.h"
#include "kelvane_idl.h"
#include "tests/windows/host_process/process_use.h"
#include "tests/windows/host_process/test_host.h"

namespace kelvane::windows_test {
namespace {

using com::ComPointer;

constexpr auto kHostFailed = static_cast<HRESULT>(kelvaneHostFailed);
constexpr auto kCallOutOfOrder = static_cast<HRESULT>(kelvaneCallOutOfOrder);
constexpr auto kCallFromOtherThread = static_cast<HRESULT>(kelvaneCallFromOtherThread);
const std::string kHostLacks =
    "宿主对象没有给出所需的内容 / A host object did not give what it was asked for: ";
// What the heaps may spread by in many rounds, in bytes.
constexpr std::size_t kGrowth = 2 << 20;
// What the system itself may hold for a moment.
constexpr unsigned kPassing = 5;
// What stays when the component is unloaded, until the process ends: four handles of the compiler's
// runtime, and one that Wine's printing library keeps.
constexpr unsigned kHandlesOfALoad = 5;

ComPointer<IPeriodItem> NewItem() {
    ComPointer<IPeriodItem> item;
    const HRESULT code =
        CoCreateInstance(__uuidof(PeriodItem), nullptr, CLSCTX_INPROC_SERVER, __uuidof(IPeriodItem),
                         reinterpret_cast<void**>(item.Receive()));
    EXPECT_EQ(code, S_OK);
    return item;
}

HRESULT Init(IPeriodItem* item, IDispatch* login, IDispatch* environment) {
    VARIANT_BOOL done = VARIANT_FALSE;
    const Variant folder = Variant::OfText("C:\\component");
    const HRESULT code = item->Init(&login, &environment, V_BSTR(&folder.Get()), &done);
    EXPECT_EQ(done, SUCCEEDED(code) ? VARIANT_TRUE : VARIANT_FALSE);
    return code;
}

std::string ErrorText() {
    ComPointer<IErrorInfo> info;
    if (GetErrorInfo(0, info.Receive()) != S_OK) return "";
    BSTR text = nullptr;
    info->GetDescription(&text);
    const std::string result = com::TextOf(text);
    SysFreeString(text);
    return result;
}

HMODULE Component() {
    return GetModuleHandleW(L"Kelvane.dll");
}

void UnloadUnused() {
    CoFreeUnusedLibrariesEx(0, 0);
}

void Report(const char* when, const ProcessUse& use) {
    std::printf("%s: %u handles, %u drawing objects, %u windows, %u threads, %zu kB\n", when,
                use.handles, use.drawingObjects, use.windows, use.threads, use.bytes / 1024);
}

class HostProcessTest : public testing::Test {
protected:
    // `rounds` times: creates, initialises, shows when `shown`, releases, and unloads when
    // `unloaded`.
    void Use(int rounds, bool shown, bool unloaded) {
        for (int round = 0; round < rounds; ++round) {
            auto item = NewItem();
            ASSERT_EQ(Init(item.Get(), host.Login(), host.Environment()), S_OK) << ErrorText();
            const HRESULT shownWith = shown ? item->Show() : S_OK;
            ASSERT_EQ(shownWith, S_OK) << ErrorText();
            item.Reset();
            ASSERT_EQ(host.HeldReferences(), 0U);
            if (!unloaded) continue;
            UnloadUnused();
            ASSERT_EQ(Component(), nullptr);
        }
    }

    // The second `rounds` rounds take no more than the first ones did.
    void ExpectNoGrowth(int rounds, bool shown, bool unloaded) {
        Use(rounds, shown, unloaded);
        const ProcessUse before = ProcessUse::Now();
        Use(rounds, shown, unloaded);
        const ProcessUse after = ProcessUse::Now();
        Report("before", before);
        Report("after", after);
        EXPECT_GT(before.handles, 0U);
        EXPECT_GT(before.drawingObjects, 0U);
        const unsigned left = unloaded ? static_cast<unsigned>(rounds) * kHandlesOfALoad : 0;
        EXPECT_LE(after.handles, before.handles + left + kPassing);
        EXPECT_LE(after.drawingObjects, before.drawingObjects + kPassing);
        EXPECT_LE(after.windows, before.windows);
        EXPECT_LE(after.threads, before.threads);
        EXPECT_LT(after.bytes, before.bytes + kGrowth);
    }

    TestHost host{com::NarrowText(com::EnvironmentText(L"KELVANE_TEST_ACCOUNT"))};
};

TEST_F(HostProcessTest, IsShownOverTheHostsWindowWhichTakesNoInputMeanwhile) {
    const auto item = NewItem();
    ASSERT_EQ(Init(item.Get(), host.Login(), host.Environment()), S_OK) << ErrorText();
    bool enabled = true;
    host.atQuery = [&] { enabled = IsWindowEnabled(host.Window()) != FALSE; };
    EXPECT_EQ(item->Show(), S_OK) << ErrorText();
    EXPECT_FALSE(enabled);
    EXPECT_TRUE(IsWindowEnabled(host.Window()));
    EXPECT_EQ(GetActiveWindow(), host.Window());
    EXPECT_GT(host.ownedWindows, 0);
    EXPECT_EQ(host.strangeWindows, 0);
}

TEST_F(HostProcessTest, LeavesNothingBehindWhenItIsUnloaded) {
    const ProcessUse before = ProcessUse::Now();
    for (int round = 0; round < 3; ++round) {
        auto item = NewItem();
        ASSERT_EQ(Init(item.Get(), host.Login(), host.Environment()), S_OK) << ErrorText();
        int classesShown = 0;
        host.atShown = [&] { classesShown = WindowClasses(Component()); };
        EXPECT_EQ(item->Show(), S_OK) << ErrorText();
        EXPECT_EQ(item->Show(), S_OK) << ErrorText();
        EXPECT_GT(classesShown, 0);
        EXPECT_EQ(WindowClasses(Component()), 0);
        EXPECT_GT(host.HeldReferences(), 0U);
        item.Reset();
        EXPECT_EQ(host.HeldReferences(), 0U);
        UnloadUnused();
        EXPECT_EQ(Component(), nullptr);
        const ProcessUse after = ProcessUse::Now();
        EXPECT_EQ(after.threads, before.threads);
        EXPECT_EQ(after.windows, before.windows);
    }
}

TEST_F(HostProcessTest, CanBeFreedByHand) {
    const HMODULE library = LoadLibraryW(com::EnvironmentText(L"KELVANE_TEST_COMPONENT").c_str());
    ASSERT_NE(library, nullptr);
    const auto canUnload = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")));
    EXPECT_EQ(canUnload(), S_OK);
    auto item = NewItem();
    EXPECT_EQ(canUnload(), S_FALSE);
    item.Reset();
    EXPECT_EQ(canUnload(), S_OK);
    UnloadUnused();
    EXPECT_TRUE(FreeLibrary(library));
    EXPECT_EQ(Component(), nullptr);
}

TEST_F(HostProcessTest, TakesNoMoreInAHundredRounds) {
    ExpectNoGrowth(100, false, false);
}

TEST_F(HostProcessTest, TakesNoMoreInRoundsWithWindows) {
    ExpectNoGrowth(10, true, false);
}

TEST_F(HostProcessTest, TakesNoMoreWhenItIsLoadedAnewInEachRound) {
    ExpectNoGrowth(10, true, true);
}

TEST_F(HostProcessTest, RefusesToBeCalledWhileItIsShown) {
    const auto item = NewItem();
    EXPECT_EQ(item->Show(), kCallOutOfOrder);
    EXPECT_EQ(ErrorText(),
              "现在不能这样调用 / The call cannot be made now: Show needs a successful Init before "
              "it");
    ASSERT_EQ(Init(item.Get(), host.Login(), host.Environment()), S_OK) << ErrorText();
    HRESULT shownAgain = S_OK;
    HRESULT initialisedAgain = S_OK;
    HRESULT otherInitialised = S_OK;
    host.atQuery = [&] {
        shownAgain = item->Show();
        initialisedAgain = Init(item.Get(), host.Login(), host.Environment());
        otherInitialised = Init(NewItem().Get(), host.Login(), host.Environment());
    };
    EXPECT_EQ(item->Show(), S_OK) << ErrorText();
    EXPECT_EQ(shownAgain, kCallOutOfOrder);
    EXPECT_EQ(initialisedAgain, kCallOutOfOrder);
    EXPECT_EQ(otherInitialised, kCallOutOfOrder);
    EXPECT_EQ(item->Show(), S_OK) << ErrorText();
}

TEST_F(HostProcessTest, RefusesAnotherThread) {
    const auto item = NewItem();
    ASSERT_EQ(Init(item.Get(), host.Login(), host.Environment()), S_OK) << ErrorText();
    HRESULT shown = S_OK;
    HRESULT initialised = S_OK;
    std::thread([&] {
        shown = item->Show();
        initialised = Init(item.Get(), host.Login(), host.Environment());
    }).join();
    EXPECT_EQ(shown, kCallFromOtherThread);
    EXPECT_EQ(initialised, kCallFromOtherThread);
    EXPECT_EQ(item->Show(), S_OK) << ErrorText();
}

TEST_F(HostProcessTest, AnotherObjectsReleaseLeavesTheLogin) {
    const auto item = NewItem();
    ASSERT_EQ(Init(item.Get(), host.Login(), host.Environment()), S_OK) << ErrorText();
    auto other = NewItem();
    ASSERT_EQ(Init(other.Get(), host.Login(), host.Environment()), S_OK) << ErrorText();
    other.Reset();
    EXPECT_EQ(item->Show(), S_OK) << ErrorText();
}

TEST_F(HostProcessTest, LivesAsLongAsItIsShown) {
    IPeriodItem* item = NewItem().Detach();
    ASSERT_EQ(Init(item, host.Login(), host.Environment()), S_OK) << ErrorText();
    host.atQuery = [&] { EXPECT_GT(item->Release(), 0U); };
    EXPECT_EQ(item->Show(), S_OK);
    EXPECT_EQ(host.HeldReferences(), 0U);
}

TEST_F(HostProcessTest, NamesWhatTheHostLacks) {
    FakeObject login;
    const auto item = NewItem();
    EXPECT_EQ(Init(item.Get(), &login, host.Environment()), kHostFailed);
    EXPECT_EQ(ErrorText(), kHostLacks + "objLogin.ConnectionString：对象没有这个成员");
    EXPECT_EQ(Init(item.Get(), nullptr, host.Environment()), E_INVALIDARG);
    EXPECT_EQ(ErrorText(),
              "参数不对 / An argument is missing or not what it has to be: Init：参数 objLogin "
              "没有对象");
}

TEST_F(HostProcessTest, InitFindsWhatWouldFailLater) {
    const auto item = NewItem();
    // No server is there: what the objects lack is found before it is asked for.
    FakeObject login;
    login.AddProperty("ConnectionString", Variant::OfText("nowhere"));
    login.AddProperty("UserId", Variant::OfText("zhang"));
    login.AddProperty("ExemptFromCenterAuth", Variant::OfInteger(1));
    EXPECT_EQ(Init(item.Get(), &login, host.Environment()), kHostFailed);
    EXPECT_EQ(ErrorText(), kHostLacks + "objLogin.Year：对象没有这个成员");
    login.AddProperty("Year", Variant::OfText("今年"));
    EXPECT_EQ(Init(item.Get(), &login, host.Environment()), kHostFailed);
    EXPECT_EQ(ErrorText(), kHostLacks + "objLogin.Year：不是数字");

    FakeObject named;
    named.AddProperty("Name", Variant::OfText("测试"));
    FakeObject account;
    account.AddProperty("Year", Variant::OfText("2004"));
    FakeObject environment;
    environment.AddProperty("Unit", Variant::OfObject(&named));
    environment.AddProperty("Operator", Variant::OfObject(&named));
    environment.AddProperty("Account", Variant::OfObject(&account));
    const auto lacks = [&] {
        EXPECT_EQ(Init(item.Get(), host.Login(), &environment), kHostFailed);
        return ErrorText();
    };
    const auto nothing = [](const FakeObject::Arguments&) { return Variant(); };
    EXPECT_EQ(lacks(), kHostLacks + "objEnv.Account.YearStart：对象没有这个成员");
    for (const char* member : {"YearStart", "PeriodOf", "PeriodStart"}) {
        account.Add(member, DISPATCH_METHOD, nothing);
    }
    EXPECT_EQ(lacks(), kHostLacks + "objEnv.DataAccess：对象没有这个成员");
    environment.AddProperty("DataAccess", Variant::OfObject(nullptr));
    EXPECT_EQ(lacks(), kHostLacks + "objEnv.DataAccess：对象不存在");
    // The calendar was not asked.
    for (const std::string& call : account.calls) EXPECT_EQ(call, "2 Year");

    // The login before is not touched by it.
    ASSERT_EQ(Init(item.Get(), host.Login(), host.Environment()), S_OK) << ErrorText();
    const auto other = NewItem();
    EXPECT_EQ(Init(other.Get(), host.Login(), &environment), kHostFailed);
    EXPECT_EQ(item->Show(), S_OK) << ErrorText();
}

TEST_F(HostProcessTest, TellsItsVersion) {
    const auto item = NewItem();
    BSTR version = nullptr;
    ASSERT_EQ(item->get_Version(&version), S_OK);
    const std::string early = com::TextOf(version);
    SysFreeString(version);
    EXPECT_EQ(early, KELVANE_VERSION);
    EXPECT_EQ(item->get_Version(nullptr), E_POINTER);
    const com::DispatchObject late(item.As<IDispatch>(), "item");
    const Variant answer = late.Get("Version");
    ASSERT_EQ(answer.Type(), VT_BSTR);
    EXPECT_EQ(com::TextOf(V_BSTR(&answer.Get())), early);
    EXPECT_THROW(late.Put("Version", Variant::OfText("9")), com::DispatchError);
}

// The type library numbers the errors as the component answers them.
TEST_F(HostProcessTest, DescribesItsErrors) {
    ComPointer<ITypeLib> library;
    ASSERT_EQ(LoadTypeLibEx(com::EnvironmentText(L"KELVANE_TEST_COMPONENT").c_str(), REGKIND_NONE,
                            library.Receive()),
              S_OK);
    ComPointer<ITypeInfo> errors;
    MEMBERID id = 0;
    USHORT found = 1;
    std::wstring name = L"KelvaneError";
    ASSERT_EQ(library->FindName(name.data(), 0, errors.Receive(), &id, &found), S_OK);
    ASSERT_EQ(found, 1);
    std::vector<HRESULT> values;
    for (UINT index = 0;; ++index) {
        VARDESC* value = nullptr;
        if (FAILED(errors->GetVarDesc(index, &value))) break;
        values.push_back(V_I4(value->lpvarValue));
        errors->ReleaseVarDesc(value);
    }
    ASSERT_EQ(values.size(), 7U);
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(values[i], static_cast<HRESULT>(kelvaneHostFailed + i));
    }
}

TEST_F(HostProcessTest, DescribesItself) {
    const auto item = NewItem();
    const auto dispatch = item.As<IDispatch>();
    std::wstring name = L"INIT";
    LPOLESTR names = name.data();
    DISPID id = 0;
    EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    EXPECT_EQ(id, 1);
    UINT count = 0;
    EXPECT_EQ(dispatch->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1U);
    ComPointer<ITypeInfo> description;
    ASSERT_EQ(dispatch->GetTypeInfo(0, LOCALE_USER_DEFAULT, description.Receive()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(description->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, __uuidof(IPeriodItem));
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FDUAL, 0);
    description->ReleaseTypeAttr(attributes);
    EXPECT_EQ(item.As<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(__uuidof(IPeriodItem)),
              S_OK);
    EXPECT_FALSE(item.As<IConnectionPointContainer>());
}

}  // namespace
}  // namespace kelvane::windows_test

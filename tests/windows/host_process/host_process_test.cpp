// The component in a host's process: early bound, on the host's thread, beside the host's window.
// KELVANE_TEST_ACCOUNT holds the account's connection string, KELVANE_TEST_COMPONENT the
// component's path, and an operator script works the windows (KELVANE_DRIVE).

#include <gtest/gtest.h>

#include <cstdio>

#include "adapters/com/wide_text.h"
#include "kelvane_idl.h"
#include "tests/windows/host_process/process_use.h"
#include "tests/windows/host_process/test_host.h"

namespace kelvane::windows_test {
namespace {

using com::ComPointer;

constexpr HRESULT kHostRefused = static_cast<HRESULT>(0x80040201);
constexpr HRESULT kCallOrder = static_cast<HRESULT>(0x80040206);
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
    EXPECT_EQ(item->Show(), kCallOrder);
    EXPECT_EQ(ErrorText(), "Show：要先成功调用 Init");
    ASSERT_EQ(Init(item.Get(), host.Login(), host.Environment()), S_OK) << ErrorText();
    HRESULT shownAgain = S_OK;
    HRESULT initialisedAgain = S_OK;
    host.atQuery = [&] {
        shownAgain = item->Show();
        initialisedAgain = Init(NewItem().Get(), host.Login(), host.Environment());
    };
    EXPECT_EQ(item->Show(), S_OK) << ErrorText();
    EXPECT_EQ(shownAgain, kCallOrder);
    EXPECT_EQ(initialisedAgain, kCallOrder);
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
    EXPECT_EQ(Init(item.Get(), &login, host.Environment()), kHostRefused);
    EXPECT_EQ(ErrorText(), "objLogin.ConnectionString：对象没有这个成员");
    EXPECT_EQ(Init(item.Get(), nullptr, host.Environment()), E_INVALIDARG);
    EXPECT_EQ(ErrorText(), "Init：参数 objLogin 没有对象");
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

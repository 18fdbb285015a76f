// The component in a host's process: early bound, on the host's thread, beside the host's window.
// KELVANE_TEST_ACCOUNT holds the account's connection string, and an operator script works the
// windows (KELVANE_DRIVE).

#include <gtest/gtest.h>

#include "adapters/windows/wide_text.h"
#include "kelvane_idl.h"
#include "tests/windows/host_process/test_host.h"
// It needs the system's headers before it.
#include <tlhelp32.h>

namespace kelvane::windows_test {
namespace {

using windows::ComPointer;

constexpr HRESULT kHostRefused = static_cast<HRESULT>(0x80040201);
constexpr HRESULT kCallOrder = static_cast<HRESULT>(0x80040206);

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
    const std::string result = windows::TextOf(text);
    SysFreeString(text);
    return result;
}

int Threads() {
    int count = 0;
    const HANDLE list = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{};
    entry.dwSize = sizeof(entry);
    for (BOOL more = Thread32First(list, &entry); more; more = Thread32Next(list, &entry)) {
        if (entry.th32OwnerProcessID == GetCurrentProcessId()) ++count;
    }
    CloseHandle(list);
    return count;
}

bool IsLoaded() {
    return GetModuleHandleW(L"Kelvane.dll") != nullptr;
}

class HostProcessTest : public testing::Test {
protected:
    TestHost host{windows::NarrowText(windows::EnvironmentText(L"KELVANE_TEST_ACCOUNT"))};
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
    const int threads = Threads();
    for (int round = 0; round < 3; ++round) {
        auto item = NewItem();
        ASSERT_EQ(Init(item.Get(), host.Login(), host.Environment()), S_OK) << ErrorText();
        EXPECT_EQ(item->Show(), S_OK) << ErrorText();
        EXPECT_EQ(item->Show(), S_OK) << ErrorText();
        WNDCLASSW description{};
        EXPECT_FALSE(GetClassInfoW(GetModuleHandleW(L"Kelvane.dll"), L"wxWindow", &description));
        EXPECT_GT(host.HeldReferences(), 0U);
        item.Reset();
        EXPECT_EQ(host.HeldReferences(), 0U);
        CoFreeUnusedLibrariesEx(0, 0);
        EXPECT_FALSE(IsLoaded());
        EXPECT_EQ(Threads(), threads);
    }
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

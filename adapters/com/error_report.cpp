#include "adapters/com/error_report.h"

#include <algorithm>
#include <exception>
#include <new>
#include <string_view>

#include "adapters/com/com_pointer.h"
#include "adapters/com/dispatch_object.h"
#include "adapters/com/wide_text.h"
#include "platform/call_errors.h"
#include "platform/host.h"

namespace kelvane::com {

namespace {

template <typename Error>
bool Matches(const std::exception& error) {
    return dynamic_cast<const Error*>(&error) != nullptr;
}

struct KnownError {
    bool (*matches)(const std::exception&);
    HRESULT code;
    std::string_view kind;
};

// The first that matches counts: the particular ones stand before the general.
constexpr KnownError kKnownErrors[] = {
    {Matches<ArgumentError>, E_INVALIDARG,
     "参数不对 / An argument is missing or not what it has to be"},
    {Matches<platform::CallOrderError>, kCallOutOfOrder,
     "现在不能这样调用 / The call cannot be made now"},
    {Matches<platform::WrongThread>, kCallFromOtherThread,
     "不能从这个线程调用 / The call came from another thread"},
    {Matches<platform::HostError>, kHostFailed,
     "宿主对象没有给出所需的内容 / A host object did not give what it was asked for"},
    {Matches<platform::CommitInDoubt>, kSaveInDoubt,
     "不知道上次保存是否成功 / Whether the last save was kept is not known"},
    {Matches<platform::ConnectionLost>, kConnectionLost,
     "与账套数据库的连接已断开 / The connection to the account database was lost"},
    {Matches<platform::DatabaseBusy>, kDatabaseBusy,
     "账套数据库正被他人占用 / The account database is busy with another operator's work"},
    {Matches<platform::DatabaseError>, kDatabaseRefused,
     "账套数据库拒绝了操作 / The account database refused"},
    {Matches<std::bad_alloc>, E_OUTOFMEMORY, "内存不足 / Out of memory"},
    {[](const std::exception&) { return true; }, E_FAIL, "组件出错 / The component failed"},
};

const KnownError& KnownErrorOf(const std::exception& error) {
    return *std::ranges::find_if(kKnownErrors,
                                 [&](const KnownError& known) { return known.matches(error); });
}

BSTR BstrOf(const std::string& text) {
    const std::wstring wide = WideText(text);
    return SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

}  // namespace

ErrorReport ReportOfCurrentException() noexcept {
    ErrorReport report{E_FAIL, {}};
    try {
        throw;
    } catch (const std::exception& error) {
        const KnownError& known = KnownErrorOf(error);
        report.code = known.code;
        try {
            report.description = std::string(known.kind) + ": " + error.what();
        } catch (...) {
            return report;  // the code alone has to do
        }
    } catch (...) {
        return report;
    }
    return report;
}

void Publish(const ErrorReport& report, REFIID interfaceId, const wchar_t* source) noexcept try {
    ComPointer<ICreateErrorInfo> created;
    if (FAILED(CreateErrorInfo(created.Receive()))) return;
    std::wstring description = WideText(report.description);
    std::wstring name = source;
    created->SetGUID(interfaceId);
    created->SetSource(name.data());
    created->SetDescription(description.data());
    if (const auto info = created.As<IErrorInfo>()) SetErrorInfo(0, info.Get());
} catch (...) {
    SetErrorInfo(0, nullptr);
}

void Fill(EXCEPINFO& exception, const ErrorReport& report, const wchar_t* source) noexcept {
    exception = {};
    exception.scode = report.code;
    exception.bstrSource = SysAllocString(source);
    try {
        exception.bstrDescription = BstrOf(report.description);
    } catch (...) {
        exception.bstrDescription = nullptr;
    }
}

}  // namespace kelvane::com

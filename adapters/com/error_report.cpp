#include "adapters/com/error_report.h"

#include <exception>
#include <new>

#include "adapters/com/com_pointer.h"
#include "adapters/com/dispatch_object.h"
#include "adapters/com/wide_text.h"
#include "platform/host.h"

namespace kelvane::com {

namespace {

constexpr HRESULT OwnCode(unsigned short number) {
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, number);
}

constexpr HRESULT kHost = OwnCode(0x201);
constexpr HRESULT kDatabase = OwnCode(0x202);
constexpr HRESULT kBusy = OwnCode(0x203);
constexpr HRESULT kLost = OwnCode(0x204);
constexpr HRESULT kInDoubt = OwnCode(0x205);
constexpr HRESULT kCallOrder = OwnCode(0x206);

template <typename Error>
bool Matches(const std::exception& error) {
    return dynamic_cast<const Error*>(&error) != nullptr;
}

struct KnownError {
    bool (*matches)(const std::exception&);
    HRESULT code;
};

// The first that matches counts: the particular ones stand before the general.
constexpr KnownError kKnownErrors[] = {
    {Matches<ArgumentError>, E_INVALIDARG},        {Matches<CallOrderError>, kCallOrder},
    {Matches<platform::HostError>, kHost},         {Matches<platform::CommitInDoubt>, kInDoubt},
    {Matches<platform::ConnectionLost>, kLost},    {Matches<platform::DatabaseBusy>, kBusy},
    {Matches<platform::DatabaseError>, kDatabase}, {Matches<std::bad_alloc>, E_OUTOFMEMORY},
};

HRESULT CodeOf(const std::exception& error) {
    for (const KnownError& known : kKnownErrors) {
        if (known.matches(error)) return known.code;
    }
    return E_FAIL;
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
        report.code = CodeOf(error);
        try {
            report.description = error.what();
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

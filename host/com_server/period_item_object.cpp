#include "host/com_server/period_item_object.h"

#include <kelvane/version.h>

#include <algorithm>
#include <array>
#include <new>
#include <utility>

#include "adapters/com/call_arguments.h"
#include "adapters/com/error_report.h"
#include "adapters/com/module.h"
#include "adapters/com/wide_text.h"
#include "host/com_server/class_identity.h"

namespace kelvane::host {

namespace {

using com::ComPointer;

constexpr DISPID kInit = 1;
constexpr DISPID kShow = 2;
constexpr DISPID kVersion = 3;

struct MemberShape {
    DISPID id;
    WORD kind;
    unsigned arguments;
};
constexpr std::array kMembers{MemberShape{kInit, DISPATCH_METHOD, 3},
                              MemberShape{kShow, DISPATCH_METHOD, 0},
                              MemberShape{kVersion, DISPATCH_PROPERTYGET, 0}};

// What hosts read in the type library is what they are told.
static_assert(com::kHostFailed == static_cast<HRESULT>(kelvaneHostFailed));
static_assert(com::kDatabaseRefused == static_cast<HRESULT>(kelvaneDatabaseRefused));
static_assert(com::kDatabaseBusy == static_cast<HRESULT>(kelvaneDatabaseBusy));
static_assert(com::kConnectionLost == static_cast<HRESULT>(kelvaneConnectionLost));
static_assert(com::kSaveInDoubt == static_cast<HRESULT>(kelvaneSaveInDoubt));
static_assert(com::kCallOutOfOrder == static_cast<HRESULT>(kelvaneCallOutOfOrder));
static_assert(com::kCallFromOtherThread == static_cast<HRESULT>(kelvaneCallFromOtherThread));

// Does `work` for an early-bound caller.
template <typename Work>
HRESULT AtBoundary(Work work) noexcept {
    try {
        work();
        return S_OK;
    } catch (...) {
        const com::ErrorReport report = com::ReportOfCurrentException();
        com::Publish(report, __uuidof(IPeriodItem), kProgId);
        return report.code;
    }
}

BSTR NewVersionText() {
    const BSTR text = SysAllocString(L"" KELVANE_VERSION);
    if (text == nullptr) throw std::bad_alloc();
    return text;
}

ComPointer<IDispatch> Given(IDispatch** object, const char* name) {
    if (object == nullptr || *object == nullptr) {
        throw com::ArgumentError("Init：参数 " + std::string(name) + " 没有对象");
    }
    return ComPointer<IDispatch>::Share(*object);
}

}  // namespace

PeriodItemObject::PeriodItemObject() : mSession(ComSession::Share()) {
    com::ModuleUse::Add();
}

PeriodItemObject::~PeriodItemObject() {
    com::ModuleUse::Remove();
}

STDMETHODIMP PeriodItemObject::QueryInterface(REFIID id, void** object) {
    if (object == nullptr) return E_POINTER;
    if (id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(IPeriodItem)) {
        *object = static_cast<IPeriodItem*>(this);
    } else if (id == IID_ISupportErrorInfo) {
        *object = static_cast<ISupportErrorInfo*>(this);
    } else {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) PeriodItemObject::AddRef() {
    return static_cast<ULONG>(InterlockedIncrement(&mReferences));
}

STDMETHODIMP_(ULONG) PeriodItemObject::Release() {
    const LONG left = InterlockedDecrement(&mReferences);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
}

STDMETHODIMP PeriodItemObject::InterfaceSupportsErrorInfo(REFIID id) {
    return id == __uuidof(IPeriodItem) ? S_OK : S_FALSE;
}

STDMETHODIMP PeriodItemObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
}

STDMETHODIMP PeriodItemObject::GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** info) {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    HRESULT found = E_FAIL;
    const HRESULT code = AtBoundary([&] {
        ComPointer<ITypeInfo> description;
        found = com::LoadTypeInfo(__uuidof(IPeriodItem), description);
        *info = description.Detach();
    });
    return FAILED(code) ? code : found;
}

STDMETHODIMP PeriodItemObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                             LCID locale, DISPID* ids) {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    ComPointer<ITypeInfo> description;
    const HRESULT code = GetTypeInfo(0, locale, description.Receive());
    return FAILED(code) ? code : description->GetIDsOfNames(names, count, ids);
}

STDMETHODIMP PeriodItemObject::Invoke(DISPID member, REFIID reserved, LCID /*locale*/, WORD kind,
                                      DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                      UINT* /*wrongArgument*/) {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (parameters == nullptr) return E_INVALIDARG;
    const auto* const shape = std::ranges::find(kMembers, member, &MemberShape::id);
    if (shape == kMembers.end() || (kind & shape->kind) == 0) return DISP_E_MEMBERNOTFOUND;
    if (parameters->cArgs != shape->arguments) return DISP_E_BADPARAMCOUNT;
    try {
        CallMember(member, *parameters, result);
        return S_OK;
    } catch (...) {
        const com::ErrorReport report = com::ReportOfCurrentException();
        if (exception == nullptr) {
            com::Publish(report, __uuidof(IPeriodItem), kProgId);
            return report.code;
        }
        com::Fill(*exception, report, kProgId);
        return DISP_E_EXCEPTION;
    }
}

void PeriodItemObject::CallMember(DISPID member, const DISPPARAMS& parameters, VARIANT* result) {
    if (result != nullptr) VariantInit(result);
    if (member == kShow) return CallShow();
    if (member == kVersion) {
        if (result == nullptr) return;
        V_BSTR(result) = NewVersionText();
        V_VT(result) = VT_BSTR;
        return;
    }
    const com::CallArguments arguments(parameters, "Init");
    auto login = arguments.Object(0, "objLogin");
    auto environment = arguments.Object(1, "objEnv");
    CallInit(std::move(login), std::move(environment), arguments.Text(2, "AppPath"));
    if (result == nullptr) return;
    V_VT(result) = VT_BOOL;
    V_BOOL(result) = VARIANT_TRUE;
}

STDMETHODIMP PeriodItemObject::Init(IDispatch** objLogin, IDispatch** objEnv, BSTR AppPath,
                                    VARIANT_BOOL* result) {
    if (result != nullptr) *result = VARIANT_FALSE;
    return AtBoundary([&] {
        auto login = Given(objLogin, "objLogin");
        CallInit(std::move(login), Given(objEnv, "objEnv"), com::TextOf(AppPath));
        if (result != nullptr) *result = VARIANT_TRUE;
    });
}

STDMETHODIMP PeriodItemObject::Show() {
    return AtBoundary([this] { CallShow(); });
}

STDMETHODIMP PeriodItemObject::get_Version(BSTR* version) {
    if (version == nullptr) return E_POINTER;
    *version = nullptr;
    return AtBoundary([version] { *version = NewVersionText(); });
}

void PeriodItemObject::CallInit(ComPointer<IDispatch> login, ComPointer<IDispatch> environment,
                                const std::string& appPath) {
    const auto kept = ComPointer<PeriodItemObject>::Share(this);
    mSession->CheckInitCall();
    mInitialized = false;
    mSession->Init(std::move(login), std::move(environment), appPath);
    mInitialized = true;
}

// The host may release the object while the window is shown.
void PeriodItemObject::CallShow() {
    const auto kept = ComPointer<PeriodItemObject>::Share(this);
    if (!mInitialized) throw platform::CallOrderError("Show needs a successful Init before it");
    mSession->Show();
}

}  // namespace kelvane::host

// A host in C++: makes the component early bound and shows its entry list. Its login and
// environment objects come from a program of the host's own, by ProgID, as they would in a real
// one:
//   host LOGINPROGID ENVIRONMENTPROGID FOLDER
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#include <cwchar>

#include "kelvane_idl.h"

namespace {

int Fail(const wchar_t* what, HRESULT code) {
    IErrorInfo* info = nullptr;
    BSTR text = nullptr;
    if (GetErrorInfo(0, &info) == S_OK) {
        info->GetDescription(&text);
        info->Release();
    }
    std::fwprintf(stderr, L"%ls: 0x%08lX %ls\n", what, static_cast<unsigned long>(code),
                  text == nullptr ? L"" : text);
    SysFreeString(text);
    return 1;
}

HRESULT Make(const wchar_t* progId, IDispatch** made) {
    CLSID id;
    const HRESULT code = CLSIDFromProgID(progId, &id);
    if (FAILED(code)) return code;
    return CoCreateInstance(id, nullptr, CLSCTX_ALL, __uuidof(IDispatch),
                            reinterpret_cast<void**>(made));
}

int ShowEntries(IDispatch* login, IDispatch* environment, const wchar_t* folder) {
    IPeriodItem* item = nullptr;
    HRESULT code = CoCreateInstance(__uuidof(PeriodItem), nullptr, CLSCTX_INPROC_SERVER,
                                    __uuidof(IPeriodItem), reinterpret_cast<void**>(&item));
    if (FAILED(code)) return Fail(L"Kelvane.PeriodItem", code);
    const BSTR path = SysAllocString(folder);
    VARIANT_BOOL done = VARIANT_FALSE;
    code = item->Init(&login, &environment, path, &done);
    SysFreeString(path);
    int status = FAILED(code) ? Fail(L"Init", code) : 0;
    if (status == 0) {
        code = item->Show();
        if (FAILED(code)) status = Fail(L"Show", code);
    }
    item->Release();
    return status;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    // Error texts may be Chinese whatever the console is set to.
    _setmode(_fileno(stderr), _O_U8TEXT);
    if (argc != 4) {
        std::fwprintf(stderr, L"usage: host LOGINPROGID ENVIRONMENTPROGID FOLDER\n");
        return 2;
    }
    HRESULT code = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (FAILED(code)) return Fail(L"COM", code);
    IDispatch* login = nullptr;
    IDispatch* environment = nullptr;
    int status = 0;
    if (FAILED(code = Make(argv[1], &login))) {
        status = Fail(argv[1], code);
    } else if (FAILED(code = Make(argv[2], &environment))) {
        status = Fail(argv[2], code);
    } else {
        status = ShowEntries(login, environment, argv[3]);
    }
    if (environment != nullptr) environment->Release();
    if (login != nullptr) login->Release();
    CoUninitialize();
    return status;
}

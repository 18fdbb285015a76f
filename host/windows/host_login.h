// The host's two objects of one login, with the names that its members have.
#pragma once

#include <memory>

#include "adapters/drive/statement_log.h"
#include "adapters/windows/host_objects.h"
#include "adapters/windows/member_names.h"

namespace kelvane::host {

class HostLoginObjects {
public:
    // `statements`: where the queries are noted; null when nobody wants to know.
    HostLoginObjects(windows::MemberNames names, windows::ComPointer<IDispatch> login,
                     windows::ComPointer<IDispatch> environment, drive::StatementLog* statements)
        : mNames(std::move(names)),
          mLogin(std::move(login), mNames),
          mEnvironment(std::move(environment), mNames) {
        if (statements == nullptr) return;
        mObserver =
            std::make_unique<drive::RecordingDataAccess>(mEnvironment.DataAccess(), *statements);
        mEnvironment.SetDataAccess(*mObserver);
    }
    HostLoginObjects(const HostLoginObjects&) = delete;
    HostLoginObjects& operator=(const HostLoginObjects&) = delete;

    windows::DispatchLogin& Login() { return mLogin; }
    windows::DispatchEnvironment& Environment() { return mEnvironment; }

private:
    windows::MemberNames mNames;
    windows::DispatchLogin mLogin;
    windows::DispatchEnvironment mEnvironment;
    std::unique_ptr<drive::RecordingDataAccess> mObserver;
};

}  // namespace kelvane::host

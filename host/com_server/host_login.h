// The host's two objects of one login, with the names that its members have.
#pragma once

#include <memory>

#include "adapters/com/host_objects.h"
#include "adapters/com/member_names.h"
#include "adapters/drive/statement_log.h"

namespace kelvane::host {

class HostLoginObjects {
public:
    // `statements`: where the queries are noted; null when nobody wants to know.
    HostLoginObjects(com::MemberNames names, com::ComPointer<IDispatch> login,
                     com::ComPointer<IDispatch> environment, drive::StatementLog* statements)
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

    com::DispatchLogin& Login() { return mLogin; }
    com::DispatchEnvironment& Environment() { return mEnvironment; }

private:
    com::MemberNames mNames;
    com::DispatchLogin mLogin;
    com::DispatchEnvironment mEnvironment;
    std::unique_ptr<drive::RecordingDataAccess> mObserver;
};

}  // namespace kelvane::host

// FlagScope: a flag that is set for as long as something goes on, however that ends.
#pragma once

namespace kelvane::ui {

class FlagScope {
public:
    explicit FlagScope(bool& flag) : mFlag(flag) { mFlag = true; }
    ~FlagScope() { mFlag = false; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    bool& mFlag;
};

}  // namespace kelvane::ui

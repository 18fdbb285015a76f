// CenterNames: what the duty centres are called, for the lower line.
#pragma once

#include <map>
#include <optional>
#include <string>

namespace kelvane::ui {

class CenterNames {
public:
    // The name of the centre of that code; empty when there is none. All are read over gEnv at the
    // first question after Forget(), aside; a failure then leaves all without a name.
    std::string NameOf(const std::string& code);
    void Forget() { mNames.reset(); }

private:
    std::optional<std::map<std::string, std::string>> mNames;
};

}  // namespace kelvane::ui

// A test's hold on the scripted driver: what it shall play, and what it was asked.
#pragma once

#include <dlfcn.h>

#include <stdexcept>
#include <string>

namespace kelvane::support {

class ScriptedOdbc {
public:
    // `path`: the driver's, which the driver manager is to load.
    explicit ScriptedOdbc(std::string path)
        : mPath(std::move(path)), mLibrary(dlopen(mPath.c_str(), RTLD_NOW | RTLD_LOCAL)) {
        if (mLibrary == nullptr) throw std::runtime_error(dlerror());
    }
    ~ScriptedOdbc() { dlclose(mLibrary); }
    ScriptedOdbc(const ScriptedOdbc&) = delete;
    ScriptedOdbc& operator=(const ScriptedOdbc&) = delete;

    std::string ConnectionString() const { return "Driver=" + mPath; }
    // Begins a play; the log starts anew.
    void Play(const std::string& script) {
        Function<void(const char*)>("ScriptedOdbcPlay")(script.c_str());
    }
    // What the driver was asked, one call a line.
    std::string Log() const { return Function<const char*()>("ScriptedOdbcLog")(); }
    // How many calls of the play have not come.
    int Left() const { return Function<int()>("ScriptedOdbcLeft")(); }

private:
    template <typename Signature>
    Signature* Function(const char* name) const {
        return reinterpret_cast<Signature*>(dlsym(mLibrary, name));
    }

    std::string mPath;
    void* mLibrary;
};

}  // namespace kelvane::support

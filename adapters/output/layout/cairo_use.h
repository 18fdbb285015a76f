// CairoUse: whose turn it is to use cairo, and what is left of it when nobody does any more.
#pragma once

#include <mutex>

namespace kelvane::output {

template <auto Release>
struct Releaser {
    template <typename T>
    void operator()(T* object) const {
        Release(object);
    }
};

// All cairo objects of a document are made, used and destroyed while one of these lives. On Windows
// one thread has its turn at a time, for cairo's fonts there are not guarded, and when the last one
// goes cairo keeps no fonts of the system's. Elsewhere others in the process use the system's
// cairo, too, which guards itself.
class CairoUse {
public:
    CairoUse();
    ~CairoUse();
    CairoUse(const CairoUse&) = delete;
    CairoUse& operator=(const CairoUse&) = delete;

    // While it lives, others have a turn, also what the operator has this thread do meanwhile.
    class Pause {
    public:
        explicit Pause(CairoUse& use) : mTurn(use.mTurn), mHeld(mTurn.owns_lock()) {
            if (mHeld) mTurn.unlock();
        }
        ~Pause() {
            if (mHeld) mTurn.lock();
        }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        std::unique_lock<std::mutex>& mTurn;
        bool mHeld;
    };

private:
    std::unique_lock<std::mutex> mTurn;
};

}  // namespace kelvane::output

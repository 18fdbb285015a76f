// TrapWatch: while one exists, errors of the account that a routine traps and answers "no" to are
// kept. Where nobody reads a notice line such an answer would pass for a finding.
#pragma once

#include <exception>
#include <functional>
#include <string_view>
#include <utility>

#include "data/login_context.h"
#include "platform/database.h"

namespace kelvane::entries {

class TrapWatch {
public:
    TrapWatch()
        : mFormer(std::exchange(data::gTrapListener,
                                [this](std::string_view place) { Keep(place); })) {}
    ~TrapWatch() { data::gTrapListener = std::move(mFormer); }
    TrapWatch(const TrapWatch&) = delete;
    TrapWatch& operator=(const TrapWatch&) = delete;

    // Throws the first error of the database that was trapped so far.
    void Rethrow() const {
        if (mTrapped) std::rethrow_exception(mTrapped);
    }

private:
    // That a budget cannot be read is a finding by itself, unless nothing can.
    void Keep(std::string_view place) {
        if (mTrapped || !std::current_exception()) return;
        try {
            throw;
        } catch (const platform::ConnectionLost&) {
            mTrapped = std::current_exception();
        } catch (const platform::DatabaseBusy&) {
            mTrapped = std::current_exception();
        } catch (const platform::DatabaseError&) {
            if (place == "GetItemBudget") return;
            mTrapped = std::current_exception();
        } catch (...) {
            // What the windows, too, pass over.
        }
    }

    std::function<void(std::string_view)> mFormer;
    std::exception_ptr mTrapped;
};

}  // namespace kelvane::entries

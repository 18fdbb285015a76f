// Which call of a service fails, and how: calls are counted, and the one that was asked for fails,
// once, or all from there on. What fails once in every place shows what each place does about it.
#pragma once

#include <optional>

namespace kelvane::faults {

enum class Fault {
    Error,          // refused, nothing was done
    Busy,           // refused, another operator holds what is needed
    Lost,           // the connection is gone, and the open transaction with it
    Gone,           // the same, and it does not come back
    AnswerLost,     // done, then the connection is gone
    DoubtSaved,     // a commit without an answer that was done
    DoubtNotSaved,  // a commit without an answer that was not
};

// What a call is; not every fault can befall each.
enum class Call { Step, Statement, Commit };

inline bool CanBefall(Fault fault, Call call) {
    if (fault == Fault::AnswerLost) return call == Call::Statement;
    if (fault == Fault::DoubtSaved || fault == Fault::DoubtNotSaved) return call == Call::Commit;
    return true;
}

class FailingCalls {
public:
    // Of the calls to come that `fault` can befall, the `number`-th fails; from 1.
    void Fail(int number, Fault fault) {
        mLeft = number;
        mFault = fault;
        mFailed = false;
    }
    // Nothing fails from here on. Returns whether anything did.
    bool Heal() {
        mLeft = 0;
        return mFailed;
    }
    // Counts one call. Returns what befalls it.
    std::optional<Fault> Next(Call call) {
        if (mLeft == 0 || !CanBefall(mFault, call) || --mLeft > 0) return std::nullopt;
        if (mFault == Fault::Gone) mLeft = 1;
        mFailed = true;
        return mFault;
    }

private:
    int mLeft = 0;
    Fault mFault = Fault::Error;
    bool mFailed = false;
};

}  // namespace kelvane::faults

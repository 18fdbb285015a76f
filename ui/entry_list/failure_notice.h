// FailureNotice: the line at the window's lower edge that names the last trapped failure of a save,
// a load, a check or an export, until the same kind of work succeeds again (loading again is
// opening the list again). Routines that end a failure without a message box would otherwise leave
// the operator guessing. It also names large work that was done, and what the operator has to be
// reminded of.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kelvane::ui {

enum class Work { Check, Load, Save, Export };

// What the operator is told of a write that failed in a way of its own.
struct WriteSentences {
    const char* busy;
    const char* inDoubt;
};

class FailureNotice {
public:
    // `show` puts a text on the line; an empty one clears it.
    explicit FailureNotice(std::function<void(const std::string&)> show) : mShow(std::move(show)) {}

    // Names the failure of the routine `place` in plain words, with the reason of the exception
    // that is being handled where the operator can do something about it.
    void Failed(std::string_view place);
    // Shows a sentence of the caller's own for a failed save.
    void FailedSave(const std::string& sentence);
    // Reports the exception that is being handled as trapped in `place`, and tells what came of the
    // write. For use in a catch block.
    void FailedWrite(std::string_view place, const WriteSentences& sentences);
    // Tells what was done, until the next thing that is told or succeeds.
    void Tell(const std::string& sentence);
    // Shows a sentence whenever there is nothing else to be told, until it is replaced; an empty
    // one ends that.
    void Remind(const std::string& sentence);
    // How many failures there were so far: work in which one was trapped is no success.
    int Failures() const { return mFailures; }
    // Clears the line when it speaks of this kind of work; a success of saving clears it in any
    // case.
    void Succeeded(Work work);
    // Clears the line when it speaks of this kind of work: what it was about is gone.
    void GivenUp(Work work);
    void Clear();

private:
    void Show(Work work, const std::string& sentence);

    std::function<void(const std::string&)> mShow;
    int mFailures = 0;
    std::string mReminder;
    Work mWork = Work::Check;
    bool mShown = false;
};

}  // namespace kelvane::ui

// ComPointer: one counted reference to a COM object, released when its scope ends.
#pragma once

#include <utility>

#include "adapters/com/com_headers.h"

namespace kelvane::com {

template <typename Interface>
class ComPointer {
public:
    ComPointer() = default;
    ComPointer(const ComPointer& other) : ComPointer(Share(other.mObject)) {}
    ComPointer(ComPointer&& other) noexcept : mObject(std::exchange(other.mObject, nullptr)) {}
    ComPointer& operator=(ComPointer other) noexcept {
        std::swap(mObject, other.mObject);
        return *this;
    }
    ~ComPointer() { Reset(); }

    // Takes over a reference that the caller owns.
    static ComPointer Adopt(Interface* object) {
        ComPointer result;
        result.mObject = object;
        return result;
    }
    // Adds a reference of its own; null stays null.
    static ComPointer Share(Interface* object) {
        if (object != nullptr) object->AddRef();
        return Adopt(object);
    }

    Interface* Get() const { return mObject; }
    Interface* operator->() const { return mObject; }
    explicit operator bool() const { return mObject != nullptr; }

    void Reset() {
        if (Interface* object = std::exchange(mObject, nullptr)) object->Release();
    }

    // Where a call that hands out a reference may put it; drops the present one.
    Interface** Receive() {
        Reset();
        return &mObject;
    }

    // Hands the reference over to the caller.
    Interface* Detach() { return std::exchange(mObject, nullptr); }

    // The same object by another interface; null when it does not have that one.
    template <typename Other>
    ComPointer<Other> As() const {
        ComPointer<Other> other;
        if (mObject != nullptr) {
            mObject->QueryInterface(__uuidof(Other), reinterpret_cast<void**>(other.Receive()));
        }
        return other;
    }

private:
    Interface* mObject = nullptr;
};

}  // namespace kelvane::com

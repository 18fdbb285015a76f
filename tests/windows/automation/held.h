// A reference to a COM object that is given back at the end.
#pragma once

#include <utility>

namespace kelvane::automation {

template <typename T>
class Held {
public:
    Held() = default;
    // Takes over one reference.
    static Held Take(T* object) {
        Held held;
        held.mObject = object;
        return held;
    }
    // Adds a reference.
    static Held Share(T* object) {
        if (object != nullptr) object->AddRef();
        return Take(object);
    }
    Held(Held&& other) noexcept : mObject(std::exchange(other.mObject, nullptr)) {}
    Held& operator=(Held&& other) noexcept {
        std::swap(mObject, other.mObject);
        return *this;
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() {
        if (mObject != nullptr) mObject->Release();
    }

    T* Get() const { return mObject; }
    T* operator->() const { return mObject; }
    explicit operator bool() const { return mObject != nullptr; }
    // One more reference, for somebody else.
    T* Another() const {
        mObject->AddRef();
        return mObject;
    }

private:
    T* mObject = nullptr;
};

}  // namespace kelvane::automation

// Runs the tests with COM as a host's user-interface thread has it.

#include <gtest/gtest.h>

#include "adapters/com/com_headers.h"

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    const HRESULT started = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const int status = RUN_ALL_TESTS();
    if (SUCCEEDED(started)) CoUninitialize();
    return status;
}

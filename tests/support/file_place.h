// An account file as a test's place.
#pragma once

#include <memory>
#include <string>

#include "tests/support/test_place.h"

namespace kelvane::support {

// In a folder of its own, which is gone with the object.
std::unique_ptr<TestPlace> MakeFilePlace();
std::unique_ptr<TestPlace> FindFilePlace(const std::string& path);

}  // namespace kelvane::support

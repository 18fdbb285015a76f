// The machine branch of the system's registry, read with query access only.
#pragma once

#include "platform/registry.h"

namespace kelvane::com {

class MachineRegistry : public platform::Registry {
public:
    Answer ReadMachineText(std::string_view key, std::string_view name,
                           std::size_t bufferLength) override;
};

}  // namespace kelvane::com

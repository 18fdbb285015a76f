// Why a table cannot be read, told from deep within. Who was asked for the table adds its name.
#pragma once

#include <stdexcept>
#include <string>

#include "platform/table.h"

namespace kelvane::tables {

// The reason, in Chinese.
class Refusal : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// What `work` returns; its Refusal becomes a TableRefused that names the table.
template <typename Work>
auto WithName(const std::string& name, const Work& work) {
    try {
        return work();
    } catch (const Refusal& refusal) {
        throw platform::TableRefused(name + "：" + refusal.what());
    }
}

}  // namespace kelvane::tables

// PickWindow: a window whose one purpose is that a row of a list is chosen. Whoever stands in for
// the operator can ask what it offers and choose without going through its keys.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kelvane::controls {

class PickWindow {
public:
    virtual ~PickWindow() = default;
    virtual std::vector<std::string> Titles() const = 0;
    // The rows as they are shown, each with one text a title.
    virtual std::vector<std::vector<std::string>> ShownRows() const = 0;
    // Chooses a shown row (from 0) or nothing, and closes the window. A number that is not shown
    // chooses nothing.
    virtual void Choose(std::optional<std::size_t> row) = 0;
};

}  // namespace kelvane::controls

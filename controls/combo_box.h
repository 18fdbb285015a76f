// ComboBox: a drop-down list whose text can be typed or chosen.
#pragma once

#include <functional>
#include <vector>

#include "controls/control.h"

namespace kelvane::controls {

class ComboBox : public Control {
public:
    using Control::Control;
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    const std::string& Text() const { return mText; }
    void SetText(const std::string& text);
    // Raised after every change of the text, the operator's and the code's.
    std::function<void()> Change;

    const std::vector<std::string>& Items() const { return mItems; }
    void AddItem(std::string_view text);
    // Empties list, text and selection.
    void Clear();

    // -1 when nothing is selected; selecting an index that does not exist selects nothing.
    int ListIndex() const { return mListIndex; }
    void SetListIndex(int index);

    // Opens the list as the operator does: raises DropDown, then the list is shown.
    void Open();
    std::function<void()> DropDown;

private:
    std::string mText;
    std::vector<std::string> mItems;
    int mListIndex = -1;
};

}  // namespace kelvane::controls

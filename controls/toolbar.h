// Toolbar: a row of buttons known by key, with a list of images known by key.
#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "controls/control.h"
#include "platform/keys.h"

namespace kelvane::controls {

class Toolbar;

class ToolbarButton {
public:
    const std::string& Key() const { return mKey; }
    const std::string& Caption() const { return mCaption; }
    bool IsSeparator() const { return mSeparator; }
    bool Enabled() const { return mEnabled; }
    bool Visible() const { return mVisible; }
    void SetEnabled(bool enabled);
    void SetVisible(bool visible);
    // Key of an image of the toolbar's list; empty when there is none.
    const std::string& Image() const { return mImage; }
    void SetImage(const std::string& imageKey);
    // The key that does the same as a click, for the operator to read; none with Key::None.
    const platform::KeyStroke& Stroke() const { return mStroke; }
    void SetStroke(const platform::KeyStroke& stroke) { mStroke = stroke; }

private:
    friend class Toolbar;
    Toolbar* mToolbar = nullptr;
    std::string mKey;
    std::string mCaption;
    std::string mImage;
    platform::KeyStroke mStroke;
    bool mSeparator = false;
    bool mEnabled = true;
    bool mVisible = true;
};

struct ToolbarImage {
    std::string key;
    int picture = 0;  // number of the picture in the component's resources
};

class Toolbar : public Control {
public:
    using Control::Control;
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    void AddButton(const std::string& key, const std::string& caption);
    void AddSeparator();

    // Buttons and separators by position, from 0, and a button by key (null when there is none).
    // References stay valid as long as the toolbar.
    std::deque<ToolbarButton>& Buttons() { return mButtons; }
    const std::deque<ToolbarButton>& Buttons() const { return mButtons; }
    ToolbarButton* Button(std::string_view key);

    void ClearImages();
    void AddImage(const std::string& key, int picture);
    const std::vector<ToolbarImage>& Images() const { return mImages; }

    // Clicks a button as the operator does; nothing happens when it is disabled, hidden or missing.
    void Click(std::string_view key);

    std::function<void(ToolbarButton&)> ButtonClick;

private:
    friend class ToolbarButton;
    std::deque<ToolbarButton> mButtons;
    std::vector<ToolbarImage> mImages;
};

}  // namespace kelvane::controls

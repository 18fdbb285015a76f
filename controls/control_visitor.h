// ControlVisitor: whoever draws a form is handed each of its controls as what it is.
#pragma once

namespace kelvane::controls {

class Button;
class ComboBox;
class EditBox;
class Grid;
class Label;
class PageView;
class Picture;
class Toolbar;
class ToolbarStyleControl;

// Control::Accept() calls the one of these that is meant for the control. What a visitor does not
// override it has nothing to do with.
class ControlVisitor {
public:
    virtual ~ControlVisitor() = default;
    virtual void Visit(Button& /*button*/) {}
    virtual void Visit(ComboBox& /*box*/) {}
    virtual void Visit(EditBox& /*box*/) {}
    virtual void Visit(Grid& /*grid*/) {}
    virtual void Visit(Label& /*label*/) {}
    virtual void Visit(PageView& /*pages*/) {}
    virtual void Visit(Picture& /*picture*/) {}
    virtual void Visit(Toolbar& /*toolbar*/) {}
    virtual void Visit(ToolbarStyleControl& /*toolbar*/) {}
};

}  // namespace kelvane::controls

#include "ui/common/detail_handover.h"

namespace kelvane::ui {

DetailHandover gDetailHandover;
std::function<void()> gShowDetailEditor;

}  // namespace kelvane::ui

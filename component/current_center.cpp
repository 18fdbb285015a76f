#include "component/current_center.h"

#include "data/login_context.h"

namespace kelvane::component {

std::string CurrentCenter() {
    return data::gRefCenterCode;
}

}  // namespace kelvane::component

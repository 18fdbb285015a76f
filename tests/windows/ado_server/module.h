// The module as COM sees it: how many of its objects live, and where its file lies.
#pragma once

#include <string>

namespace kelvane::ado_server {

void ObjectMade();
void ObjectGone();
bool HasObjects();

// The path of this module's file.
std::wstring ModulePath();

}  // namespace kelvane::ado_server

// The system's headers for COM automation, in the one form that they are included in.
#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// The order matters: these need <windows.h> before them.
#include <dispex.h>
#include <ole2.h>
#include <oleauto.h>

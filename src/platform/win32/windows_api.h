// The window system's own header, without the macros that rename operations of this system. Included after every
// header of the project that names such an operation, or before: both ways the names stay as they are written.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#undef LoadString
#undef ReplaceFile
#undef near
#undef far

// The module that this code was linked into: a program, or the library that a host loaded.
#pragma once

#include "platform/win32/windows_api.h"

namespace set32::win32 {

inline HMODULE ModuleInstance() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&ModuleInstance), &module);
  return module;
}

}  // namespace set32::win32

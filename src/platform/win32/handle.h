// Owners of the window system's handles. Each frees its handle once, when it is dropped or given another.
#pragma once

#include <utility>

#include "platform/win32/windows_api.h"

namespace set32::win32 {

template <typename Handle, auto Free>
class Owned {
 public:
  Owned() = default;
  explicit Owned(Handle handle) : handle_(handle) {}
  ~Owned() { Reset(); }
  Owned(Owned&& other) noexcept : handle_(std::exchange(other.handle_, Handle{})) {}
  Owned& operator=(Owned&& other) noexcept {
    if (this != &other) {
      Reset();
      handle_ = std::exchange(other.handle_, Handle{});
    }
    return *this;
  }

  Handle Get() const { return handle_; }
  explicit operator bool() const { return handle_ != Handle{}; }
  // Leaves the handle to whoever frees it from now on.
  Handle Release() { return std::exchange(handle_, Handle{}); }
  void Reset() {
    if (handle_ != Handle{}) Free(std::exchange(handle_, Handle{}));
  }

 private:
  Handle handle_{};
};

inline void FreeObject(HANDLE handle) {
  CloseHandle(handle);
}
inline void FreeDrawingObject(HGDIOBJ object) {
  DeleteObject(object);
}
inline void FreeMemoryDc(HDC dc) {
  DeleteDC(dc);
}
inline void FreeIcon(HICON icon) {
  DestroyIcon(icon);
}
inline void FreeHook(HHOOK hook) {
  UnhookWindowsHookEx(hook);
}
inline void FreeKey(HKEY key) {
  RegCloseKey(key);
}
inline void FreeMenu(HMENU menu) {
  DestroyMenu(menu);
}
inline void FreeAccelerators(HACCEL keys) {
  DestroyAcceleratorTable(keys);
}
inline void UnloadModule(HMODULE module) {
  FreeLibrary(module);
}
inline void FreeWindow(HWND window) {
  DestroyWindow(window);
}

using OwnedHandle = Owned<HANDLE, FreeObject>;
using OwnedBitmap = Owned<HBITMAP, FreeDrawingObject>;
using OwnedFont = Owned<HFONT, FreeDrawingObject>;
using OwnedDc = Owned<HDC, FreeMemoryDc>;
using OwnedIcon = Owned<HICON, FreeIcon>;
using OwnedHook = Owned<HHOOK, FreeHook>;
using OwnedKey = Owned<HKEY, FreeKey>;
using OwnedMenu = Owned<HMENU, FreeMenu>;
using OwnedAccelerators = Owned<HACCEL, FreeAccelerators>;
using OwnedModule = Owned<HMODULE, UnloadModule>;
using OwnedWindow = Owned<HWND, FreeWindow>;

// A file's handle, with the mark that file calls use for none.
inline OwnedHandle OwnedFile(HANDLE file) {
  return OwnedHandle(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

// The device context of a window's client area, given back at the end.
class WindowDc {
 public:
  explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
  ~WindowDc() {
    if (dc_ != nullptr) ReleaseDC(window_, dc_);
  }
  WindowDc(const WindowDc&) = delete;
  WindowDc& operator=(const WindowDc&) = delete;
  HDC Get() const { return dc_; }

 private:
  HWND window_;
  HDC dc_;
};

// The device context that a window paints with while it answers WM_PAINT.
class PaintDc {
 public:
  explicit PaintDc(HWND window) : window_(window), dc_(BeginPaint(window, &paint_)) {}
  ~PaintDc() { EndPaint(window_, &paint_); }
  PaintDc(const PaintDc&) = delete;
  PaintDc& operator=(const PaintDc&) = delete;
  HDC Get() const { return dc_; }

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
  HDC dc_;
};

// An object selected into a device context, the old one put back at the end.
class Selected {
 public:
  Selected(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
  ~Selected() { SelectObject(dc_, before_); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC dc_;
  HGDIOBJ before_;
};

}  // namespace set32::win32

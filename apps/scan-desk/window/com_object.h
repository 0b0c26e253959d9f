// The system's component objects, released when they are dropped.
#pragma once

#include <windows.h>

#include <objbase.h>

namespace scan_desk {

template <typename Object>
class Com {
 public:
  Com() = default;
  ~Com() {
    if (object_ != nullptr) object_->Release();
  }
  Com(const Com&) = delete;
  Com& operator=(const Com&) = delete;

  Object* operator->() const { return object_; }
  Object* Get() const { return object_; }
  // Where the system writes the object, once.
  Object** Place() { return &object_; }

 private:
  Object* object_ = nullptr;
};

// Their library, for as long as this lives.
class ComLibrary {
 public:
  ComLibrary() : stands_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  ~ComLibrary() {
    if (stands_) CoUninitialize();
  }
  ComLibrary(const ComLibrary&) = delete;
  ComLibrary& operator=(const ComLibrary&) = delete;

 private:
  bool stands_;
};

}  // namespace scan_desk

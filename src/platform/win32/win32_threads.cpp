#include "platform/win32/win32_threads.h"

#include <process.h>

#include <new>

#include "platform/guarded.h"
#include "platform/win32/code_page.h"
#include "platform/win32/exception_room.h"
#include "platform/win32/handle.h"
#include "platform/win32/module_hold.h"

namespace set32 {

namespace {

struct Task {
  std::function<void()> work;
  win32::ModuleHold hold;
};

unsigned __stdcall Run(void* argument) {
  std::unique_ptr<Task> task(static_cast<Task*>(argument));
  win32::ModuleHold hold = std::move(task->hold);
  if (win32::HasRoomForExceptions()) Guarded(task->work);
  task.reset();
  hold.EndThread();  // after it the code here may be gone
}

class Win32NamedMutex : public NamedMutex {
 public:
  Win32NamedMutex(win32::OwnedHandle handle, int held) : handle_(std::move(handle)), held_(held) {}
  ~Win32NamedMutex() override {
    while (held_ > 0) Win32NamedMutex::Release();
  }
  Win32NamedMutex(const Win32NamedMutex&) = delete;
  Win32NamedMutex& operator=(const Win32NamedMutex&) = delete;

  bool Wait(int milliseconds) override {
    const DWORD got = WaitForSingleObject(handle_.Get(), static_cast<DWORD>(milliseconds < 0 ? 0 : milliseconds));
    // A thread that died holding it leaves it free.
    if (got != WAIT_OBJECT_0 && got != WAIT_ABANDONED) return false;
    ++held_;
    return true;
  }

  void Release() override {
    if (held_ == 0) return;
    --held_;
    ReleaseMutex(handle_.Get());
  }

 private:
  win32::OwnedHandle handle_;
  int held_;
};

}  // namespace

bool Win32Threads::Start(ThreadPriority priority, std::function<void()> work) {
  win32::ModuleHold hold;
  if (!hold) return false;
  auto task = std::unique_ptr<Task>(new (std::nothrow) Task{std::move(work), std::move(hold)});
  if (task == nullptr) return false;
  const auto thread = _beginthreadex(nullptr, 0, Run, task.get(), CREATE_SUSPENDED, nullptr);
  if (thread == 0) return false;
  static_cast<void>(task.release());  // the thread's from here on
  const win32::OwnedHandle handle(reinterpret_cast<HANDLE>(thread));
  if (priority == ThreadPriority::aboveNormal) SetThreadPriority(handle.Get(), THREAD_PRIORITY_ABOVE_NORMAL);
  ResumeThread(handle.Get());
  return true;
}

std::unique_ptr<NamedMutex> Win32Threads::MakeMutex(std::string_view name, bool owned) {
  win32::OwnedHandle handle(CreateMutexW(nullptr, owned, win32::ModuleText().Wide(name).c_str()));
  // One that stood before is not owned, whatever was asked.
  const bool isOwned = owned && GetLastError() != ERROR_ALREADY_EXISTS;
  if (!handle) return nullptr;
  return std::make_unique<Win32NamedMutex>(std::move(handle), isOwned ? 1 : 0);
}

}  // namespace set32

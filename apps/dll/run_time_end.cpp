// The run time is made for programs, whose end frees all. It keeps a slot of the process's thread storage for itself,
// and two handles for each thread that comes by, until that thread ends. There are about a thousand slots, and where
// it gets none it aborts: a host that loads the library once a scan, and lives long, would come to that. So the
// thread that frees the library is taken for one that ends, and the slot goes back; so does the memory that is kept
// for exceptions.
#include "run_time_end.h"

#include <pthread.h>

#include <bitset>

#include "platform/win32/windows_api.h"
#include "thread_storage.h"

extern "C" const IMAGE_TLS_DIRECTORY _tls_used;  // the run time's list of whom to tell of a thread's end

namespace __gnu_cxx {  // NOLINT(bugprone-reserved-identifier): the run time's own
void __freeres();      // NOLINT(bugprone-reserved-identifier)
}

namespace {

constexpr DWORD mostSlots = TLS_MINIMUM_AVAILABLE + 1024;

std::bitset<mostSlots> UsedSlots() {
  std::bitset<mostSlots> used;
  for (DWORD slot = 0; slot < mostSlots; ++slot) used[slot] = TlsGetValue(slot) != nullptr;
  return used;
}

void TellThreadEnd() {
  const auto* tell = reinterpret_cast<const PIMAGE_TLS_CALLBACK*>(_tls_used.AddressOfCallBacks);
  for (; tell != nullptr && *tell != nullptr; ++tell) (*tell)(nullptr, DLL_THREAD_DETACH, nullptr);
}

struct RunTimeEnd {
  bool isUnload = false;

  RunTimeEnd() = default;
  ~RunTimeEnd() {
    if (!isUnload) return;
    __gnu_cxx::__freeres();
    pthread_self();  // this thread has its part in the slot
    const auto before = UsedSlots();
    TellThreadEnd();
    // The slot that the run time empties is its own.
    const auto emptied = before & ~UsedSlots();
    for (DWORD slot = 0; slot < mostSlots; ++slot) {
      if (emptied[slot]) TlsFree(slot);
    }
    DropAllThreadStorage();
  }
  RunTimeEnd(const RunTimeEnd&) = delete;
  RunTimeEnd& operator=(const RunTimeEnd&) = delete;
};

// The first of the library's objects, and so the last to go: the others still need the run time.
__attribute__((init_priority(101))) RunTimeEnd runTimeEnd;

}  // namespace

void ExpectUnload() {
  runTimeEnd.isUnload = true;
}

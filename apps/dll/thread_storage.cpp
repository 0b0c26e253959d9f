// The run time's own storage makes a lock with two of the system's handles when the first exception is thrown, and
// never gives them back: a host that loads the library once a scan would lose two each time. This one takes its place
// for the linker. It needs a slot of the system's and plain memory, and both go with the library.
#include "thread_storage.h"

#include <windows.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace {

// As the compiler lays it down for each such variable.
struct Variable {
  std::uintptr_t size;
  std::uintptr_t alignment;
  std::uintptr_t number;  // ours, from 1 on; 0 until a thread first asks
  const void* initial;    // null for zeros
};

constexpr std::size_t mostVariables = 16;

struct Block {
  Block* next = nullptr;
  std::array<void*, mostVariables> values{};
};

SRWLOCK lock = SRWLOCK_INIT;  // without a handle
DWORD slot = TLS_OUT_OF_INDEXES;
std::uintptr_t variables = 0;
Block* blocks = nullptr;

class Locked {
 public:
  Locked() { AcquireSRWLockExclusive(&lock); }
  ~Locked() { ReleaseSRWLockExclusive(&lock); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;
};

// Nobody could be told that there is no memory: it is what being told would need.
template <typename T>
T* Had(T* block) {
  if (block == nullptr) std::abort();
  return block;
}

Block& BlockOfThread(Variable& variable) {
  const Locked locked;
  if (slot == TLS_OUT_OF_INDEXES) slot = TlsAlloc();
  if (variable.number == 0) variable.number = ++variables;
  if (slot == TLS_OUT_OF_INDEXES || variable.number > mostVariables) std::abort();
  auto* block = static_cast<Block*>(TlsGetValue(slot));
  if (block == nullptr) {
    block = Had(static_cast<Block*>(std::calloc(1, sizeof(Block))));
    block->next = std::exchange(blocks, block);
    TlsSetValue(slot, block);
  }
  return *block;
}

void Free(Block* block) {
  for (void* value : block->values) std::free(value);
  std::free(block);
}

}  // namespace

// NOLINTNEXTLINE(bugprone-reserved-identifier): the compiler's name
extern "C" void* __emutls_get_address(Variable* variable) {
  void*& value = BlockOfThread(*variable).values[variable->number - 1];
  if (value == nullptr) {
    value = Had(std::calloc(1, variable->size));
    if (variable->initial != nullptr) std::memcpy(value, variable->initial, variable->size);
  }
  return value;
}

void DropThreadStorage() {
  const Locked locked;
  if (slot == TLS_OUT_OF_INDEXES) return;
  auto* const own = static_cast<Block*>(TlsGetValue(slot));
  if (own == nullptr) return;
  Block** at = &blocks;
  while (*at != own) at = &(*at)->next;
  *at = own->next;
  TlsSetValue(slot, nullptr);
  Free(own);
}

void DropAllThreadStorage() {
  const Locked locked;
  while (Block* block = std::exchange(blocks, blocks == nullptr ? nullptr : blocks->next)) Free(block);
  if (slot != TLS_OUT_OF_INDEXES) TlsFree(std::exchange(slot, TLS_OUT_OF_INDEXES));
}

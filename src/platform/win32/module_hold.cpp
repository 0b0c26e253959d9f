#include "platform/win32/module_hold.h"

#include <winternl.h>

#include <atomic>
#include <cstddef>
#include <cstring>
#include <optional>
#include <utility>

namespace set32::win32 {

namespace {

// What the loader keeps of a module. No function tells how many references there are, and the place of their number
// depends on the system's age: first the entry itself, later a node beside it.
struct LoaderNode {
  LIST_ENTRY modules;
  void* serviceTags;
  ULONG references;
};

struct LoaderEntry {
  LIST_ENTRY orders[3];
  void* base;
  void* entryPoint;
  ULONG imageSize;
  UNICODE_STRING names[2];
  ULONG flags;
  USHORT references;
  USHORT threadSlot;
  LIST_ENTRY hashLinks;
  ULONG timeStamp;
  void* activation;
  void* lock;
  const LoaderNode* node;
};

static_assert(offsetof(LoaderEntry, references) == (sizeof(void*) == 4 ? 0x38 : 0x6C));
static_assert(offsetof(LoaderEntry, node) == (sizeof(void*) == 4 ? 0x50 : 0x98));

// Memory that may not be what it is taken for: nothing is read of an address that isn't there.
template <typename T>
T ReadLoader(const T* from) {
  T record{};
  SIZE_T moved = 0;
  if (!ReadProcessMemory(GetCurrentProcess(), from, &record, sizeof record, &moved)) return T{};
  return record;
}

const LoaderEntry* EntryOfModule() {
  using FindEntry = LONG(NTAPI*)(const void* address, const LoaderEntry** entry);
  const HMODULE system = GetModuleHandleW(L"ntdll.dll");
  const FARPROC found = system == nullptr ? nullptr : GetProcAddress(system, "LdrFindEntryForAddress");
  if (found == nullptr) return nullptr;
  FindEntry find = nullptr;
  std::memcpy(&find, &found, sizeof find);
  const LoaderEntry* entry = nullptr;
  return find(reinterpret_cast<const void*>(&EntryOfModule), &entry) >= 0 ? entry : nullptr;
}

ULONG ReferencesOfEntry() {
  return ReadLoader(EntryOfModule()).references;
}

ULONG ReferencesOfNode() {
  return ReadLoader(ReadLoader(EntryOfModule()).node).references;
}

HMODULE TakeReference() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCWSTR>(&TakeReference), &module);
  return module;
}

using CountReferences = ULONG (*)();

// The number that a reference of ours moves by one; null where none does.
CountReferences FindCount() {
  for (const CountReferences count : {&ReferencesOfEntry, &ReferencesOfNode}) {
    const ULONG before = count();
    const HMODULE module = TakeReference();
    const bool counts = module != nullptr && count() == before + 1;
    if (module != nullptr) FreeLibrary(module);
    if (counts) return count;
  }
  return nullptr;
}

std::atomic<ULONG> ours{0};  // references that are out
std::atomic<int> uses{0};
std::atomic<int> entries{0};
std::optional<ModuleHold> hold;  // while there are uses

// Whether anybody outside has a reference; "can't tell" is "no", with which nothing but memory is lost.
bool IsHeldOutside() {
  static const CountReferences count = FindCount();
  return count != nullptr && count() > ours;
}

}  // namespace

ModuleHold::ModuleHold() : module_(TakeReference()) {
  if (module_ != nullptr) ++ours;
}

ModuleHold::ModuleHold(ModuleHold&& other) noexcept : module_(std::exchange(other.module_, nullptr)) {}

ModuleHold::~ModuleHold() {
  if (module_ == nullptr || !IsHeldOutside()) return;
  --ours;
  FreeLibrary(module_);
}

void ModuleHold::EndThread() {
  --ours;
  FreeLibraryAndExitThread(module_, 0);
}

ModuleUse::ModuleUse() {
  if (uses++ == 0) hold.emplace();
}

ModuleUse::~ModuleUse() {
  if (--uses == 0) hold.reset();
}

ModuleEntry::ModuleEntry() {
  ++entries;
}

ModuleEntry::~ModuleEntry() {
  --entries;
}

bool ModuleEntry::AnyUnderWay() {
  return entries > 0;
}

}  // namespace set32::win32

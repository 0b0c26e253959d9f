// How many handles the process has in use, counted where they are: the functions that tell it (GetGuiResources,
// GetProcessHandleCount) say 0 whatever there is on some systems.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <vector>

#include "tests/dll/loaded_panel.h"

namespace set32 {

struct LiveHandles {
  int drawing = 0;   // live entries of the process's table of drawing objects
  int userRoom = 0;  // how many more windows, menus, hooks, cursors there could be
  int system = 0;    // files, threads, events and the like
  int slotRoom = 0;  // slots of thread storage that are free
  bool operator==(const LiveHandles&) const = default;

  friend std::ostream& operator<<(std::ostream& out, const LiveHandles& handles) {
    return out << handles.drawing << " drawing objects, room for " << handles.userRoom << " user objects, "
               << handles.system << " system handles, " << handles.slotRoom << " free slots";
  }
};

// Room is what can be filled. Most of it stays filled for as long as the counter lives, so that a count is quick.
class HandleCounter {
 public:
  HandleCounter() : filling_(Fill()) {
    for (int left = spare; left > 0 && !filling_.empty(); --left) Drop(filling_);
  }
  ~HandleCounter() {
    while (!filling_.empty()) Drop(filling_);
  }
  HandleCounter(const HandleCounter&) = delete;
  HandleCounter& operator=(const HandleCounter&) = delete;

  LiveHandles Now() const {
    std::vector<HMENU> rest = Fill();
    const auto room = static_cast<int>(rest.size());
    while (!rest.empty()) Drop(rest);
    return {DrawingObjects(), room, SystemHandles(), SlotRoom()};
  }

  static int DrawingObjects() {
    constexpr std::size_t tableInBlock = sizeof(void*) == 4 ? 0x94 : 0xF8;
    const auto block = Find<const std::uint8_t*(NTAPI*)()>(GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb");
    if (block == nullptr) return 0;
    const DrawingEntry* table = nullptr;
    std::memcpy(&table, block() + tableInBlock, sizeof table);
    MEMORY_BASIC_INFORMATION memory{};
    if (table == nullptr || VirtualQuery(table, &memory, sizeof memory) == 0) return 0;
    const std::size_t entries = std::min<std::size_t>(memory.RegionSize / sizeof *table, 0x10000);
    const auto own = static_cast<std::uint16_t>(GetCurrentProcessId());
    return static_cast<int>(std::count_if(table, table + entries, [own](const DrawingEntry& entry) {
      return entry.kind != 0 && (entry.process == 0 || entry.process == own);
    }));
  }

  static int SystemHandles() {
    constexpr std::uintptr_t highest = 0x4000, step = 4;
    int known = 0;
    for (std::uintptr_t handle = step; handle < highest; handle += step) {
      DWORD flags = 0;
      if (GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags)) ++known;
    }
    return known;
  }

 private:
  static constexpr int spare = 2000;  // several panels' need

  static std::vector<HMENU> Fill() {
    std::vector<HMENU> menus;
    while (const HMENU menu = CreateMenu()) menus.push_back(menu);
    return menus;
  }
  static void Drop(std::vector<HMENU>& menus) {
    DestroyMenu(menus.back());
    menus.pop_back();
  }

  // As 64-bit systems lay the table out, for programs of 32 bits too.
  struct DrawingEntry {
    std::uint64_t object;
    std::uint16_t process;  // 0 where the table is the process's own
    std::uint16_t count;
    std::uint16_t unique;
    std::uint8_t kind;  // 0: free
    std::uint8_t flags;
    std::uint64_t user;
  };
  static_assert(sizeof(DrawingEntry) == 24);

  static int SlotRoom() {
    std::vector<DWORD> slots;
    for (DWORD slot = TlsAlloc(); slot != TLS_OUT_OF_INDEXES; slot = TlsAlloc()) slots.push_back(slot);
    for (const DWORD slot : slots) TlsFree(slot);
    return static_cast<int>(slots.size());
  }

  std::vector<HMENU> filling_;
};

}  // namespace set32

// The library in a process whose address space is full but for a little: it gives no panel, or one that works, and
// once there is room again everything works.
#include <cstdlib>
#include <new>

#include "resources/ids.h"
#include "tests/dll/loaded_panel.h"

namespace set32 {
namespace {

// Takes all that one source has, in ever smaller pieces, and gives it back by the piece, the last ones first. Its
// list is in the pieces.
template <void* (*Take)(std::size_t), void (*GiveBack)(void*)>
class Filling {
 public:
  Filling(std::size_t largest, std::size_t smallest) {
    for (std::size_t size = largest; size >= smallest; size /= 2) {
      while (void* const room = Take(size)) last_ = new (room) Piece{last_, size};
    }
  }
  ~Filling() { Release(SIZE_MAX); }
  Filling(const Filling&) = delete;
  Filling& operator=(const Filling&) = delete;

  // About so many bytes.
  void Release(std::size_t bytes) {
    for (std::size_t released = 0; last_ != nullptr && released < bytes;) {
      const Piece piece = *last_;
      GiveBack(last_);
      last_ = piece.before;
      released += piece.size;
    }
  }

 private:
  struct Piece {
    Piece* before;
    std::size_t size;
  };
  Piece* last_ = nullptr;
};

// Reserved, with a first page to write into.
void* TakeSpace(std::size_t size) {
  void* const room = VirtualAlloc(nullptr, size, MEM_RESERVE, PAGE_READWRITE);
  if (room != nullptr && VirtualAlloc(room, 1, MEM_COMMIT, PAGE_READWRITE) != nullptr) return room;
  if (room != nullptr) VirtualFree(room, 0, MEM_RELEASE);
  return nullptr;
}
void GiveSpaceBack(void* room) {
  VirtualFree(room, 0, MEM_RELEASE);
}

using Space = Filling<TakeSpace, GiveSpaceBack>;
using Heap = Filling<std::malloc, std::free>;  // the library's own as well

// No room for the heap to grow, and so many bytes left in it. The window system itself, which doesn't stand it where
// nothing at all is to be had, still finds holes.
struct Shortage {
  explicit Shortage(std::size_t left) { heap.Release(left); }
  Space space{std::size_t{256} << 20, 0x200000};
  Heap heap{0x8000, 2 * sizeof(void*)};
};

struct ScarceMemory : Dll {
  void SetUp() override {
    if (sizeof(void*) > 4) GTEST_SKIP() << "an address space that can't be filled";
  }

  static constexpr std::size_t least = 0x1000;
  static constexpr std::size_t plenty = 0x400000;  // for more than one life

  // The host calls, a person picks a resolution, and the host calls again. Result: the page.
  HWND Live(const HostWindow& host) {
    const HWND page = OpenIn(host);
    const HWND combo = GetDlgItem(page, id::resolutionCombo);
    SendMessageW(combo, CB_SETCURSEL, picked_ = 7 - picked_, 0);
    SendMessageW(page, WM_COMMAND, MAKEWPARAM(id::resolutionCombo, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
    OpenIn(host);
    Pump();
    return page;
  }
  // All of it works.
  void ExpectLife(HostWindow& host) {
    host.heard.clear();
    const HWND page = Live(host);
    EXPECT_TRUE(IsWindow(page));
    EXPECT_THAT(host.heard, testing::Contains(to_host::resolutionChanged));
    const HWND combo = GetDlgItem(page, id::resolutionCombo);
    EXPECT_EQ(SendMessageW(combo, CB_GETITEMDATA, static_cast<WPARAM>(picked_), 0),
              static_cast<LRESULT>(settings.resolutionId));
  }
  // The library is new for each.
  void ForEachShortage(const std::function<void(HostWindow& host, std::size_t left)>& live) {
    for (std::size_t left = 0; left <= plenty; left = left == 0 ? least : left * 3 / 2) {
      SCOPED_TRACE(left);
      HostWindow host;
      host.heard.reserve(10000);  // the host has its own memory
      live(host, left);
      Unload();
      Load();
    }
  }

 private:
  int picked_ = 3;
};

TEST_F(ScarceMemory, GivesNoPanelOrOneThatWorks) {
  int refused = 0;
  ForEachShortage([&](HostWindow& host, std::size_t left) {
    {
      const Shortage shortage(left);
      if (Live(host) == nullptr) ++refused;
    }
    ExpectLife(host);
    DestroyWindow(host.window);
  });
  EXPECT_GT(refused, 0);
}

// It ends with room again: some systems can't end any window without.
TEST_F(ScarceMemory, LeavesAStandingPanelThatWorks) {
  ForEachShortage([&](HostWindow& host, std::size_t left) {
    const HWND page = OpenIn(host);
    {
      const Shortage shortage(left);
      Live(host);
    }
    EXPECT_TRUE(IsWindow(page));
    ExpectLife(host);
    DestroyWindow(host.window);
    EXPECT_FALSE(IsWindow(page));
  });
}

}  // namespace
}  // namespace set32

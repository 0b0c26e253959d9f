// What a wild host has at hand: numbers by chance, memory whose end is guarded, records and pictures of any content.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <random>

#include "set32/dib.h"
#include "set32/host_records.h"

namespace set32 {

class Chance {
 public:
  explicit Chance(unsigned seed) : engine_(seed) {}
  std::uint32_t Word() { return static_cast<std::uint32_t>(engine_()); }
  int Below(int limit) { return static_cast<int>(Word() % static_cast<std::uint32_t>(limit)); }
  bool OneIn(int count) { return Below(count) == 0; }
  template <typename T>
  T Of(std::initializer_list<T> values) {
    return std::data(values)[Below(static_cast<int>(values.size()))];
  }
  template <typename T>
  auto& In(T& list) {
    return list[static_cast<std::size_t>(Below(static_cast<int>(std::size(list))))];
  }
  void Fill(void* bytes, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) static_cast<std::uint8_t*>(bytes)[i] = static_cast<std::uint8_t>(Word());
  }
  // Writes over a few words of a record, or over all.
  template <typename T>
  void Bend(T& record) {
    std::uint32_t words[sizeof(T) / 4];
    std::memcpy(words, &record, sizeof words);
    if (OneIn(8)) Fill(words, sizeof words);
    for (int left = Below(4); left > 0; --left)
      In(words) = OneIn(2) ? Word() : static_cast<std::uint32_t>(Below(400));
    std::memcpy(static_cast<void*>(&record), words, sizeof words);
  }

 private:
  std::mt19937 engine_;
};

// Memory of a host's, right before a page that nobody may touch.
class GuardedMemory {
 public:
  explicit GuardedMemory(std::size_t size) : room_((size + page - 1) / page * page) {
    base_ = static_cast<std::uint8_t*>(VirtualAlloc(nullptr, room_ + page, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
    DWORD before = 0;
    VirtualProtect(base_ + room_, page, PAGE_NOACCESS, &before);
    bytes_ = base_ + room_ - size;
  }
  ~GuardedMemory() { VirtualFree(base_, 0, MEM_RELEASE); }
  GuardedMemory(const GuardedMemory&) = delete;
  GuardedMemory& operator=(const GuardedMemory&) = delete;
  std::uint8_t* Bytes() const { return bytes_; }

 private:
  static constexpr std::size_t page = 4096;
  std::size_t room_;
  std::uint8_t* base_ = nullptr;
  std::uint8_t* bytes_ = nullptr;
};

class WildRecord {
 public:
  ScanSettings& Get() const { return *reinterpret_cast<ScanSettings*>(memory_.Bytes()); }
  void Bend(Chance& chance) const {
    chance.Bend(Get());
    Get().frameCommand = 0;  // anything else is a promise
  }

 private:
  GuardedMemory memory_{sizeof(ScanSettings)};
};

// The pixels hold what imageSize says; everything else may be wrong.
class WildPicture {
 public:
  explicit WildPicture(Chance& chance) {
    auto* header = reinterpret_cast<BitmapInfoHeader*>(header_.Bytes());
    *header = {40, 90, 60, 1, 24, 0, 0, 0, 0, 0, 0};
    chance.Fill(source_.Bytes(), size);
    dib_.stride = 272;
    dib_.imageSize = 272 * 60;
    if (chance.OneIn(2)) {
      *header = {40,
                 chance.Below(400) - 20,
                 chance.Below(400) - 100,
                 1,
                 chance.Of<std::uint16_t>({1, 8, 24, 24, 32}),
                 0,
                 0,
                 chance.Below(50000),
                 0,
                 0,
                 0};
      dib_.stride = static_cast<std::uint32_t>(chance.Below(1300));
      dib_.imageSize = static_cast<std::uint32_t>(chance.Below(size + 1));
    }
    dib_.header = chance.OneIn(8) ? nullptr : header;
    dib_.sourcePixels = chance.OneIn(8) ? nullptr : source_.Bytes();
    dib_.displayPixels = chance.OneIn(8) ? nullptr : display_.Bytes();
    dib_.savedPixels = chance.OneIn(8) ? nullptr : saved_.Bytes();
    dib_.kind = static_cast<std::uint32_t>(chance.Below(5));
    dib_.ownsDisplay = 0;
  }
  CDib* Get() { return &dib_; }

 private:
  static constexpr int size = 50000;
  GuardedMemory header_{sizeof(BitmapInfoHeader) + 256 * sizeof(ColourEntry)};
  GuardedMemory source_{size}, display_{size}, saved_{size};
  CDib dib_;
};

}  // namespace set32

// How controls follow the size of their page. Host's thread only.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "platform/windows.h"

namespace set32 {

// Which edges of a control follow a change of the page's size, or-ed. A stretched edge wins over a move.
namespace anchor {
inline constexpr std::uint32_t moveX = 1;
inline constexpr std::uint32_t moveY = 2;
inline constexpr std::uint32_t stretchX = 4;
inline constexpr std::uint32_t stretchY = 8;
}  // namespace anchor

class CAnchors {
 public:
  // Flags of 0 are no anchor and enter nothing.
  void Add(std::uint32_t flags, std::initializer_list<int> controlIds);

  // The page's window is gone; the next one begins without anchors and without a size.
  void Clear() {
    words_.clear();
    last_ = {};
  }

  // The page's client size is now this. The first size only is remembered; later ones move the controls by the
  // difference.
  void Resize(Dialog& page, Size client);

 private:
  // One word a control: its id in the low half, the flags in the high half.
  std::vector<std::uint32_t> words_;
  Size last_;
};

}  // namespace set32

#include "controls/anchors.h"

namespace set32 {

namespace {

Rect Anchored(Rect place, std::uint32_t flags, int dx, int dy) {
  if ((flags & anchor::stretchX) != 0) {
    place.right += dx;
  } else if ((flags & anchor::moveX) != 0) {
    place.left += dx;
    place.right += dx;
  }
  if ((flags & anchor::stretchY) != 0) {
    place.bottom += dy;
  } else if ((flags & anchor::moveY) != 0) {
    place.top += dy;
    place.bottom += dy;
  }
  return place;
}

}  // namespace

void CAnchors::Add(std::uint32_t flags, std::initializer_list<int> controlIds) {
  if (flags == 0) return;
  for (const int controlId : controlIds) {
    words_.push_back(flags << 16 | (static_cast<std::uint32_t>(controlId) & 0xFFFF));
  }
}

void CAnchors::Resize(Dialog& page, Size client) {
  if (last_.width != 0) {
    const int dx = client.width - last_.width;
    const int dy = client.height - last_.height;
    for (const std::uint32_t word : words_) {
      Control* control = page.Find(static_cast<int>(word & 0xFFFF));
      if (control == nullptr || !control->Exists()) continue;
      control->Move(Anchored(control->Place(), word >> 16, dx, dy));
    }
  }
  last_ = client;
}

}  // namespace set32

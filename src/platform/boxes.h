// Message boxes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "set32/window_handle.h"

namespace set32 {

// Style words of a box, the window system's own.
namespace box_style {
inline constexpr std::uint32_t ok = 0x00;
inline constexpr std::uint32_t yesNo = 0x04;
inline constexpr std::uint32_t stop = 0x10;
inline constexpr std::uint32_t exclamation = 0x30;
inline constexpr std::uint32_t information = 0x40;
}  // namespace box_style

enum class BoxAnswer { ok = 1, cancel = 2, yes = 6, no = 7 };

class Boxes {
 public:
  virtual ~Boxes() = default;

  // Modal over `owner` (0: none), on the calling thread. A box that can't be shown answers cancel, or no where it has
  // Yes and No.
  virtual BoxAnswer Show(WindowHandle owner, std::string_view text, std::string_view caption,
                         std::uint32_t style) = 0;

  // On a thread of its own that holds the module until the box is closed; the texts are copied before this returns.
  // A thread that can't be started means that the box isn't shown. Any thread.
  virtual void ShowOnThread(WindowHandle owner, std::string_view text, std::string_view caption,
                            std::uint32_t style) = 0;
};

}  // namespace set32

// Message boxes of the model: told to a listener and answered by another, so that a script can act inside.
#pragma once

#include <functional>
#include <mutex>

#include "platform/boxes.h"

namespace set32 {

struct ShownBox {
  WindowHandle owner = 0;
  std::string text;
  std::string caption;
  std::uint32_t style = 0;
  bool onThread = false;
};

// A box's first button.
constexpr BoxAnswer FirstAnswer(std::uint32_t style) {
  return (style & box_style::yesNo) != 0 ? BoxAnswer::yes : BoxAnswer::ok;
}

// Boxes on a thread of their own are told and close by themselves. Any thread, one call of a listener at a time; the
// one that answers is called on the thread that shows the box.
class HeadlessBoxes : public Boxes {
 public:
  // Empty ones say nothing, and answer with the first button.
  void SetListener(std::function<void(const ShownBox&)> told) { told_ = std::move(told); }
  void SetAnswerer(std::function<BoxAnswer(const ShownBox&)> answers) { answers_ = std::move(answers); }

  BoxAnswer Show(WindowHandle owner, std::string_view text, std::string_view caption, std::uint32_t style) override {
    const ShownBox box{owner, std::string(text), std::string(caption), style, false};
    Report(box);
    return answers_ ? answers_(box) : FirstAnswer(style);
  }
  void ShowOnThread(WindowHandle owner, std::string_view text, std::string_view caption,
                    std::uint32_t style) override {
    Report({owner, std::string(text), std::string(caption), style, true});
  }

 private:
  void Report(const ShownBox& box) {
    const std::lock_guard lock(oneAtATime_);
    if (told_) told_(box);
  }

  std::function<void(const ShownBox&)> told_;
  std::function<BoxAnswer(const ShownBox&)> answers_;
  std::mutex oneAtATime_;
};

}  // namespace set32

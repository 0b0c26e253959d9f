// A single-line edit on a real window.
#pragma once

#include "platform/win32/real_control.h"

namespace set32::win32 {

class RealEdit : public Real<Edit> {
 public:
  using Real::Real;
  TextRange Selection() const override;
  void Select(TextRange range) override;
  void ReplaceSelection(std::string_view text) override;
  void ScrollCaretIntoView() override { Ask(EM_SCROLLCARET); }
  void SetLimit(int characters) override;
  void SetGuard(EditGuard* guard) override { guard_ = guard; }

  void OnCommand(WORD code) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  // Enter as the keyboard's hook sees it, before the edit does.
  void OnEnterSeen() const;

 private:
  bool IsFull() const;

  EditGuard* guard_ = nullptr;
};

}  // namespace set32::win32

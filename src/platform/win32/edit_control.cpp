#include "platform/win32/edit_control.h"

#include <algorithm>

#include "platform/win32/code_page.h"
#include "platform/win32/win32_dialog.h"

namespace set32::win32 {

TextRange RealEdit::Selection() const {
  if (!Exists()) return {};
  DWORD start = 0, end = 0;
  SendMessageW(Window(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  const std::wstring text = WideText();
  return {CharactersOfUnits(text, static_cast<int>(start)), CharactersOfUnits(text, static_cast<int>(end))};
}

void RealEdit::Select(TextRange range) {
  if (!Exists()) return;
  const std::wstring text = WideText();
  const int end = range.end < 0 ? static_cast<int>(text.size()) : UnitsOfCharacters(text, range.end);
  Ask(EM_SETSEL, static_cast<WPARAM>(UnitsOfCharacters(text, range.start)), end);
}

void RealEdit::ReplaceSelection(std::string_view text) {
  if (!Exists()) return;
  const std::wstring wide = ModuleText().Wide(text);
  SendMessageW(Window(), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(wide.c_str()));
}

void RealEdit::SetLimit(int characters) {
  Ask(EM_SETLIMITTEXT, static_cast<WPARAM>(std::max(characters, 0)));
}

void RealEdit::OnCommand(WORD code) {
  switch (code) {
    case EN_UPDATE:
      Raise(EventKind::editUpdate);
      break;
    case EN_CHANGE:
      Raise(EventKind::editChanged);
      break;
    case EN_SETFOCUS:
      Raise(EventKind::focusGained);
      break;
    case EN_KILLFOCUS:
      Raise(EventKind::focusLost);
      break;
    default:
      break;
  }
}

// Whether the text has no room for one more character. Some systems' edits then report a change that isn't one.
bool RealEdit::IsFull() const {
  const TextRange selection = Selection();
  return selection.start == selection.end && GetWindowTextLengthW(Window()) >= AskNumber(EM_GETLIMITTEXT);
}

std::optional<LRESULT> RealEdit::OnMessage(UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_CHAR: {
      const auto unit = static_cast<wchar_t>(wParam);
      if (guard_ != nullptr && !guard_->OnCharacter(ModuleText().Narrow({&unit, 1}))) return 0;
      if (!Exists() || (unit >= L' ' && IsFull())) return 0;
      break;
    }
    case WM_PASTE:
      if (guard_ != nullptr && !guard_->OnPaste()) return 0;
      break;
    default:
      break;
  }
  return {};
}

void RealEdit::OnEnterSeen() const {
  if (guard_ != nullptr) guard_->OnEnterKey();
}

}  // namespace set32::win32

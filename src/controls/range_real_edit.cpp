#include "controls/range_real_edit.h"

#include <algorithm>
#include <string>

namespace set32 {

namespace {

constexpr std::string_view backspace = "\b";

// A long text of foreign characters must not beep for minutes.
constexpr int mostBeeps = 10;

}  // namespace

void CRangeRealEdit::Attach(Dialog& dialog, int editId) {
  dialog_ = &dialog;
  edit_ = &dialog.Get<Edit>(editId);
  edit_->SetGuard(this);
  NoteRange();
}

void CRangeRealEdit::SetRange(double a, double b) {
  rules_.SetRange(a, b);
  NoteRange();
}

bool CRangeRealEdit::OnCharacter(std::string_view character) {
  // Deleting is never refused, even where the text that stands is out of range.
  if (character == backspace || edit_ == nullptr) return true;
  const EditState before = State();
  const EditVerdict verdict = rules_.Judge(before, character);
  if (verdict != EditVerdict::foreign) DeleteSelection(before);
  if (verdict == EditVerdict::taken) return true;
  system_.Beep();
  return false;
}

// Answered here altogether: the edit would paste without asking.
bool CRangeRealEdit::OnPaste() {
  if (edit_ == nullptr) return false;
  std::string pasted;
  switch (clipboard_.Read(pasted)) {
    case ClipboardRead::cantOpen:
      edit_->SetText("");
      return false;
    case ClipboardRead::noText:
      system_.Beep();
      return false;
    case ClipboardRead::text:
      break;
  }

  const EditState before = State();
  const EditVerdict verdict = rules_.Judge(before, pasted);
  if (verdict == EditVerdict::foreign) {
    BeepForForeign(pasted);
    return false;
  }
  DeleteSelection(before);
  if (verdict == EditVerdict::refused) {
    system_.Beep();
    return false;
  }
  edit_->SetText(before.With(pasted));
  const std::string head = before.text.substr(0, before.start) + pasted;
  const int caret = static_cast<int>(CountCharacters(system_, head));
  edit_->Select({caret, caret});
  return false;
}

void CRangeRealEdit::OnEnterKey() {
  if (dialog_ != nullptr && enter_ == EnterKey::leavesEdit) dialog_->TakeFocus();
}

EditState CRangeRealEdit::State() const {
  const TextRange selection = edit_->Selection();
  EditState state{.text = edit_->Text()};
  const auto bytes = [&](int characters) {
    return BytesOfCharacters(system_, state.text, static_cast<std::size_t>(std::max(characters, 0)));
  };
  state.start = bytes(selection.start);
  state.end = std::max(state.start, bytes(selection.end));
  return state;
}

void CRangeRealEdit::DeleteSelection(const EditState& state) {
  if (state.start != state.end) edit_->ReplaceSelection("");
}

void CRangeRealEdit::BeepForForeign(std::string_view pasted) {
  int beeps = 0;
  while (!pasted.empty() && beeps < mostBeeps) {
    const std::size_t length = std::max<std::size_t>(system_.CharacterLength(pasted), 1);
    if (!rules_.Allows(pasted.substr(0, length))) {
      system_.Beep();
      ++beeps;
    }
    pasted.remove_prefix(std::min(length, pasted.size()));
  }
}

void CRangeRealEdit::NoteRange() {
  if (edit_ != nullptr) edit_->NoteRange({rules_.minValue, rules_.maxValue});
}

}  // namespace set32

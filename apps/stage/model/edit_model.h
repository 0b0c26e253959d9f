// The edit of the model: text, selection and caret in characters, and the keys that a person presses in it.
#pragma once

#include "apps/stage/inspection.h"
#include "apps/stage/model/control_model.h"

namespace set32 {

class EditModel : public Modelled<Edit>, public NotesRange {
 public:
  EditModel(HeadlessDialog& dialog, const ControlTemplate& source, const Rect& place);

  std::string Text() const override { return text_; }
  void SetText(std::string_view text) override;
  TextRange Selection() const override { return selection_; }
  void Select(TextRange range) override;
  void ReplaceSelection(std::string_view text) override;
  void SetLimit(int characters) override;
  void SetGuard(EditGuard* guard) override;
  void NoteRange(NumberRange range) override { range_ = range; }
  std::optional<NumberRange> NotedRange() const override { return range_; }
  void Perish() override;

  EditGuard* Guard() const { return guard_; }
  // A key's character, 8 for backspace; asks the guard first.
  void Type(std::string_view character);
  // Asks the guard first.
  void Paste(std::string_view clipboard);

 private:
  void TellChanged();
  void Replace(TextRange range, std::string_view text);
  void Insert(std::string_view character);
  void EraseBackwards();
  int Room() const;  // characters that may still be typed

  std::string text_;
  TextRange selection_;
  int limit_;
  bool readOnly_;
  bool digitsOnly_;
  EditGuard* guard_ = nullptr;
  std::optional<NumberRange> range_;
};

}  // namespace set32

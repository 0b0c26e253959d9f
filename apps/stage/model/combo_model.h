// The drop-down list of the model, plain and owner-drawn.
#pragma once

#include <vector>

#include "apps/stage/inspection.h"
#include "apps/stage/model/control_model.h"

namespace set32 {

class ComboModel : public Modelled<Combo>, public DropsList {
 public:
  ComboModel(HeadlessDialog& dialog, const ControlTemplate& source, const Rect& place);

  std::string Text() const override { return EntryText(selected_); }
  void SetText(std::string_view) override {}
  int Count() const override { return static_cast<int>(entries_.size()); }
  int Add(std::string_view text) override { return Insert(Count(), text); }
  int Insert(int index, std::string_view text) override;
  void Remove(int index) override;
  void Clear() override;
  std::string EntryText(int index) const override;
  void SetData(int index, std::uintptr_t data) override;
  std::uintptr_t Data(int index) const override;
  int Selected() const override { return selected_; }
  void SelectIndex(int index) override;
  int TopIndex() const override { return top_; }
  int EntriesPerPage() const { return visibleEntries_; }
  void SetTopIndex(int index) override;
  void SetDroppedWidth(int pixels) override { droppedWidth_ = pixels; }
  int DroppedWidth() const override;
  bool WasDropped() const override { return wasDropped_; }
  void Perish() override;

  // A person's acts.
  void Pick(int index);
  void Drop();

 private:
  struct Entry {
    std::string text;
    std::uintptr_t data = 0;
  };
  bool Holds(int index) const { return index >= 0 && index < Count(); }

  std::vector<Entry> entries_;
  int selected_ = -1;
  int top_ = 0;
  int visibleEntries_;
  int droppedWidth_ = 0;
  bool wasDropped_ = false;
};

}  // namespace set32

// A drop-down list on a real window.
#pragma once

#include "platform/win32/real_control.h"

namespace set32::win32 {

class RealCombo : public Real<Combo> {
 public:
  using Real::Real;
  std::string Text() const override { return EntryText(Selected()); }
  void SetText(std::string_view) override {}
  Rect Place() const override;
  void Move(const Rect& place) override;
  int Count() const override { return AskNumber(CB_GETCOUNT); }
  int Add(std::string_view text) override { return Insert(Count(), text); }
  int Insert(int index, std::string_view text) override;
  void Remove(int index) override;
  void Clear() override { Ask(CB_RESETCONTENT); }
  std::string EntryText(int index) const override;
  void SetData(int index, std::uintptr_t data) override;
  std::uintptr_t Data(int index) const override;
  int Selected() const override { return Exists() ? AskNumber(CB_GETCURSEL) : -1; }
  void SelectIndex(int index) override;
  int TopIndex() const override { return AskNumber(CB_GETTOPINDEX); }
  void SetTopIndex(int index) override;
  void SetDroppedWidth(int pixels) override;
  int DroppedWidth() const override { return AskNumber(CB_GETDROPPEDWIDTH); }
  void SetPainter(ItemPainter* painter) override;

  void OnCommand(WORD code) override;
  void OnDrawItem(const DRAWITEMSTRUCT& item) override;
  // The window of the list that drops.
  HWND ListWindow() const;

 private:
  int VisibleEntries() const;
  bool Holds(int index) const { return index >= 0 && index < Count(); }

  ItemPainter* painter_ = nullptr;
};

}  // namespace set32::win32

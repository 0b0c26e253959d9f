// A tab bar on a real window.
#pragma once

#include "platform/win32/image_list.h"
#include "platform/win32/real_control.h"

namespace set32::win32 {

class RealTabBar : public Real<TabBar> {
 public:
  using Real::Real;
  void SetImages(const Picture& strip, int width, Colour transparent) override;
  int Count() const override { return AskNumber(TCM_GETITEMCOUNT); }
  void Add(std::string_view text, int image) override;
  void Remove(int index) override;
  void Clear() override { Ask(TCM_DELETEALLITEMS); }
  int Current() const override { return Exists() ? AskNumber(TCM_GETCURSEL) : -1; }
  void SetCurrent(int index) override;
  std::string TabText(int index) const override;
  int TabImage(int index) const override;
  void SetMinTabWidth(int pixels) override { Ask(TCM_SETMINTABWIDTH, 0, pixels); }
  void SetPadding(Size padding) override { Ask(TCM_SETPADDING, 0, MAKELPARAM(padding.width, padding.height)); }
  Rect DisplayArea() const override;
  void SetName(std::string_view name) override { PutText(name); }

  LRESULT OnNotify(const NMHDR& header) override;
  // Client coordinates of a tab, empty for none.
  Rect TabPlace(int index) const;

 private:
  bool Holds(int index) const { return index >= 0 && index < Count(); }

  OwnedImageList images_;
};

}  // namespace set32::win32

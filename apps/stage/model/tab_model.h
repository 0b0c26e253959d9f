// The tab bar of the model.
#pragma once

#include <vector>

#include "apps/stage/model/control_model.h"

namespace set32 {

class TabModel : public Modelled<TabBar> {
 public:
  using Modelled::Modelled;

  void SetImages(const Picture& strip, int width, Colour transparent) override;
  int Count() const override { return static_cast<int>(tabs_.size()); }
  void Add(std::string_view text, int image) override;
  void Remove(int index) override;
  void Clear() override;
  int Current() const override { return current_; }
  void SetCurrent(int index) override;
  std::string TabText(int index) const override;
  int TabImage(int index) const override;
  void SetMinTabWidth(int pixels) override { minWidth_ = pixels; }
  void SetPadding(Size padding) override { padding_ = padding; }
  Rect DisplayArea() const override;
  void Perish() override;

  // A person's act; the tab that is current is no choice.
  void Choose(int index);

 private:
  struct Tab {
    std::string text;
    int image = -1;
  };
  bool Holds(int index) const { return index >= 0 && index < Count(); }

  Picture strip_;
  int imageWidth_ = 0;
  std::vector<Tab> tabs_;
  int current_ = -1;
  int minWidth_ = 0;
  Size padding_;
};

}  // namespace set32

// Walks over the model of windows: every handler may act again inside whatever it hears, also end windows and release
// dialogs, so that nothing is touched after its end.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "apps/stage/model/model_windows.h"
#include "fuzz/support/choices.h"

namespace set32 {
namespace {

enum Id { edit = 10, other, combo, list, tabs, slider, spin, check, first, second };

constexpr ControlTemplate controls[] = {
    {edit, ControlKind::edit, "", 0, 0, 40, 12, 0},
    {other, ControlKind::edit, "", 0, 0, 40, 12, 0},
    {combo, ControlKind::combo, "", 0, 0, 40, 60, 0},
    {list, ControlKind::list, "", 0, 0, 40, 60, 0},
    {tabs, ControlKind::tab, "", 0, 0, 40, 60, 0},
    {slider, ControlKind::slider, "", 0, 0, 40, 12, 0},
    {spin, ControlKind::spin, "", 0, 0, 10, 12, 0},
    {check, ControlKind::check, "", 0, 0, 40, 12, 0},
    {first, ControlKind::radio, "", 0, 0, 40, 12, control_flag::groupStart},
    {second, ControlKind::radio, "", 0, 0, 40, 12, 0},
    {dialog_result::ok, ControlKind::defaultButton, "", 0, 0, 40, 12, 0},
    {dialog_result::cancel, ControlKind::button, "", 0, 0, 40, 12, 0},
};
constexpr DialogTemplate child{1, "", {100, 100}, "Sans", 8, DialogStyle::child, controls};
constexpr DialogTemplate modal{2, "", {100, 100}, "Sans", 8, DialogStyle::modalPopup, controls};
constexpr DialogTemplate modeless{3, "", {100, 100}, "Sans", 8, DialogStyle::modelessPopup, controls};

class Walk;

class Walker : public DialogHandler, public HostWindowHandler {
 public:
  explicit Walker(Walk& walk) : walk_(walk) {}
  void OnInit(Dialog&) override { Act(); }
  void OnEvent(const Event&) override { Act(); }
  MessageResult OnMessage(std::uint32_t, WParam, LParam) override { return Act(); }
  void OnResize(ResizeKind, Size) override { Act(); }
  void OnOk() override { Act(); }
  void OnCancel() override { Act(); }
  void OnShown(bool) override { Act(); }
  void OnEnabled(bool) override { Act(); }
  void OnDestroying() override { Act(); }
  void OnDestroyed() override { Act(); }
  MessageResult OnHostMessage(std::uint32_t, WParam, LParam) override { return Act(); }
  void OnRepaintAsked() override { Act(); }

 private:
  MessageResult Act();
  Walk& walk_;
};

class Walk {
 public:
  explicit Walk(std::span<const std::uint8_t> bytes) : choices_(bytes) {
    screen_.windows.SetOpenedHook([this](Dialog&) { ActInside(); });
    screen_.windows.SetClosedHook([this](Dialog&, int) { ActInside(); });
  }

  void Run() {
    while (!choices_.IsEmpty()) Act();
  }
  void ActInside() {
    if (!choices_.IsEmpty() && depth_ < deepest && Pick(3) == 0) Act();
  }

 private:
  static constexpr int deepest = 8;

  int Pick(int choices) { return choices_.Below(choices); }

  WindowHandle AnyWindow() {
    const auto standing = screen_.windows.Standing();
    const auto index = static_cast<std::size_t>(Pick(static_cast<int>(standing.size()) + 2));
    return index < standing.size() ? standing[index]->Handle() : host_;
  }
  Control& AnyControl(Dialog& dialog) {
    return *dialog.Controls()[static_cast<std::size_t>(Pick(static_cast<int>(dialog.Controls().size())))];
  }
  void Create(const DialogTemplate& source) {
    if (std::unique_ptr<Dialog> dialog = screen_.windows.Create(source, AnyWindow(), walker_)) {
      dialogs_.push_back(std::move(dialog));
      dialogs_.back()->SetVisible(true);
    }
  }
  void ReleaseOne() {
    if (dialogs_.empty()) return;
    const auto at = dialogs_.begin() + Pick(static_cast<int>(dialogs_.size()));
    const std::unique_ptr<Dialog> released = std::move(*at);
    dialogs_.erase(at);
  }

  void Act() {
    ++depth_;
    Dialog* dialog = screen_.windows.DialogOf(AnyWindow());
    if (dialog == nullptr) {
      ActOnTheScene();
    } else if (Pick(2) == 0) {
      ActOnWindow(*dialog);
    } else {
      ActOnControl(*dialog);
    }
    --depth_;
  }
  void ActOnTheScene() {
    switch (Pick(8)) {
      case 0:
        if (!screen_.windows.IsWindow(host_)) host_ = screen_.input.MakeHostWindow({300, 200}, walker_);
        break;
      case 1:
        screen_.input.DestroyHostWindow(host_);
        break;
      case 2:
        Create(child);
        break;
      case 3:
        Create(modeless);
        break;
      case 4:
        if (depth_ < deepest) screen_.windows.RunModal(modal, AnyWindow(), walker_);
        break;
      case 5:
        ReleaseOne();
        break;
      case 6:
        screen_.input.Pump();
        break;
      default:
        screen_.input.FocusHost();
    }
  }
  void ActOnWindow(Dialog& dialog) {
    switch (Pick(9)) {
      case 0:
        dialog.SetVisible(Pick(2) == 0);
        break;
      case 1:
        dialog.SetEnabled(Pick(2) == 0);
        break;
      case 2:
        dialog.Destroy();
        break;
      case 3:
        dialog.EndModal(Pick(3));
        break;
      case 4:
        dialog.Move({0, 0, Pick(200), Pick(200)});
        break;
      case 5:
        dialog.TakeFocus();
        break;
      case 6:
        screen_.input.SendClose(dialog);
        break;
      case 7:
        screen_.windows.Send(dialog.Handle(), 0x403, 0, 0);
        break;
      default:
        screen_.input.PressKey(static_cast<Key>(Pick(static_cast<int>(Key::end) + 1)));
    }
  }
  void ActOnControl(Dialog& dialog) {
    Input& hands = screen_.input;
    switch (Pick(12)) {
      case 0:
        hands.Focus(AnyControl(dialog));
        break;
      case 1:
        hands.Click(AnyControl(dialog));
        break;
      case 2:
        AnyControl(dialog).SetEnabled(Pick(2) == 0);
        break;
      case 3:
        AnyControl(dialog).SetVisible(Pick(2) == 0);
        break;
      case 4:
        hands.TypeText(dialog.Get<Edit>(edit), "1\xE4\xB8\x80");
        break;
      case 5:
        hands.Backspace(dialog.Get<Edit>(edit), 2);
        break;
      case 6:
        dialog.Get<Combo>(combo).Insert(Pick(4), "entry");
        hands.PickEntry(dialog.Get<Combo>(combo), Pick(4));
        break;
      case 7:
        dialog.Get<Combo>(combo).Remove(Pick(4));
        break;
      case 8:
        dialog.Get<List>(list).Add("row", 0, 0);
        hands.ClickRow(dialog.Get<List>(list), Pick(5) - 1);
        break;
      case 9:
        dialog.Get<List>(list).Remove(Pick(5));
        break;
      case 10:
        dialog.Get<TabBar>(tabs).Add("", 0);
        hands.ChooseTab(dialog.Get<TabBar>(tabs), Pick(4));
        break;
      default:
        dialog.Get<Spin>(spin).SetBuddy(edit);
        hands.SpinBy(dialog.Get<Spin>(spin), Pick(9) - 4);
    }
  }

  fuzz::Choices choices_;
  int depth_ = 0;
  WindowHandle host_ = 0;
  Walker walker_{*this};
  ModelWindows screen_;
  std::vector<std::unique_ptr<Dialog>> dialogs_;
};

MessageResult Walker::Act() {
  walk_.ActInside();
  return 0;
}

}  // namespace
}  // namespace set32

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  set32::Walk({data, size}).Run();
  return 0;
}

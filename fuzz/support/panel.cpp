#include "fuzz/support/panel.h"

#include <iterator>
#include <utility>
#include <vector>

#include "apps/driver/walk_checks.h"
#include "platform/events.h"
#include "resources/ids.h"
#include "set32/messages.h"

namespace set32::fuzz {

namespace {

constexpr const char* numbers[] = {"1",  "300",   "0.30", "8.5",   "99999999", "",    ".",    "19200",
                                   "-1", "3.333", "100",  "10.00", "0.01",     "-99", "-180", "1e5"};
constexpr std::string_view keys = "0123456789.-+ ,ex";

template <typename Act>
Act ActOf(Choices& choices) {
  return static_cast<Act>(choices.Below(static_cast<int>(Act::last)));
}

}  // namespace

Panel::Panel(std::span<const std::uint8_t> bytes) : choices(bytes) {
  files.content[MemoryWorld::modulePath] = "[RunTime]\nDriverType=0\n";
  files.content[MemoryWorld::profilePath] = "[Config Items]\n";
  host.caps = DeviceCaps{};
  host.caps->words[DeviceCaps::restrictedMaxDpiWord] = 600;
  host.caps->words[DeviceCaps::sourceCapsWord] = source_caps::feeder | source_caps::transparency;
  world.screen.boxes.SetAnswerer([this](const ShownBox& box) { return AnswerOf(box); });
  world.screen.windows.SetOpenedHook([this](Dialog& dialog) { ActInside(dialog); });
}

Panel::~Panel() {
  world.screen.windows.SetOpenedHook({});
  host.End();
}

void Panel::ChooseFace(Face face) {
  files.content[MemoryWorld::optionsPath] =
      "[Option]\nLLDriverInterface=1\nEnablePaperSource=1\nAppName=a\nEnable36BitApps=a\nUIFace=" +
      std::to_string(face == Face::sheet ? 1 : 0) + '\n';
}

Module& Panel::TheModule() {
  return module_ ? *module_ : module_.emplace(world.platform);
}

bool Panel::Open() {
  const Dialog* page = host.Open(TheModule(), preview);
  page_ = page != nullptr ? page->Handle() : 0;
  return page_ != 0;
}

Dialog* Panel::Find(int dialogId) const {
  Dialog* found = nullptr;
  for (Dialog* dialog : world.screen.windows.Standing()) {
    if (dialog->TemplateId() == dialogId && dialog->IsVisible()) found = dialog;
  }
  return found;
}

void Panel::EndProcess() {
  module_.reset();
}

void Panel::ActAt(Dialog& dialog, Hands hands) {
  std::vector<Control*> reached;
  for (const auto& control : dialog.Controls()) {
    const bool isReachable = hands == Hands::program || (control->IsVisible() && control->IsEnabled());
    if (isReachable) reached.push_back(control.get());
  }
  if (!reached.empty())
    ActAtControl(*reached[static_cast<std::size_t>(choices.Below(static_cast<int>(reached.size())))]);
}

void Panel::ActAtControl(Control& control) {
  Input& hands = world.screen.input;
  switch (control.Kind()) {
    case ControlKind::edit:
      return ActAtEdit(static_cast<Edit&>(control));
    case ControlKind::combo:
    case ControlKind::iconCombo: {
      auto& combo = static_cast<Combo&>(control);
      if (ActOf<ComboAct>(choices) == ComboAct::drop) return hands.DropList(combo);
      return hands.PickEntry(combo, choices.Below(combo.Count()));
    }
    case ControlKind::tab:
      return hands.ChooseTab(static_cast<TabBar&>(control), choices.Below(static_cast<TabBar&>(control).Count()));
    case ControlKind::list: {
      auto& list = static_cast<List&>(control);
      if (ActOf<RowAct>(choices) == RowAct::arrow) return hands.ArrowTo(list, choices.Below(list.Count()));
      return hands.ClickRow(list, choices.Below(list.Count() + 1) - 1);
    }
    case ControlKind::spin:
      return hands.SpinBy(static_cast<Spin&>(control), choices.Below(9) - 4);
    case ControlKind::slider:
    case ControlKind::scroll:
      return ActAtBar(control);
    case ControlKind::address: {
      std::array<std::optional<int>, 4> fields;
      for (auto& field : fields) {
        if (const int value = choices.Next(); value < 255) field = value;
      }
      return hands.FillAddress(static_cast<Address&>(control), fields);
    }
    default:
      ActOf<ClickAct>(choices) == ClickAct::click ? hands.Click(control) : hands.Poke(control);
  }
}

void Panel::ActAtEdit(Edit& edit) {
  constexpr int longest = 40;
  Input& hands = world.screen.input;
  const auto act = ActOf<EditAct>(choices);
  hands.Focus(edit);
  switch (act) {
    case EditAct::number:
      hands.SelectAll(edit);
      return hands.TypeText(edit, choices.OneOf(numbers));
    case EditAct::text:
      hands.SelectAll(edit);
      return hands.TypeText(edit, choices.Text(longest));
    case EditAct::paste:
      world.screen.clipboard.Write(choices.Text(longest));
      return hands.Paste(edit);
    case EditAct::append:
      return hands.TypeText(edit,
                            keys.substr(static_cast<std::size_t>(choices.Below(static_cast<int>(keys.size()))), 1));
    case EditAct::backspace:
      return hands.Backspace(edit, choices.Below(8));
    default: {
      const int start = choices.Below(12) - 1;
      return hands.SetCaret(edit, {start, start + choices.Below(5)});
    }
  }
}

void Panel::ActAtBar(Control& bar) {
  auto* slider = dynamic_cast<Slider*>(&bar);
  const auto act = ActOf<BarAct>(choices);
  if (act == BarAct::release && slider != nullptr) return world.screen.input.Release(*slider);
  const int code = choices.Below(scroll_code::endScroll + 1);
  const int position = choices.Next() * 9 - 1000;
  world.screen.input.ScrollTo(bar, code, CarriesPosition(code) ? std::optional(position) : std::nullopt);
}

void Panel::ActAnywhere() {
  const auto standing = world.screen.windows.Standing();
  if (standing.empty()) return;
  Dialog& dialog = *standing[static_cast<std::size_t>(choices.Below(static_cast<int>(standing.size())))];
  switch (choices.Below(16)) {
    case 0:
      return world.screen.input.SendClose(dialog);
    case 1:
    case 2:
      return PressKey();
    case 3:
      return world.screen.input.MovePointer(dialog, {choices.Next() * 2 - 50, choices.Next() * 2 - 50});
    case 4:
      return world.screen.input.Resize(dialog, {choices.Next() * 7 - 100, choices.Next() * 3 - 50});
    case 5:
      return dialog.SetEnabled(choices.Maybe());
    default:
      return ActAt(dialog, Hands::program);
  }
}

void Panel::PressKey() {
  world.screen.input.PressKey(static_cast<Key>(choices.Below(static_cast<int>(Key::end) + 1)));
}

void Panel::Report(Dialog& page) {
  ScanSettings report = *host.record;
  choices.Bend(report);
  report.frameCommand = 0;
  const int what = choices.Next();
  if (what % 2 != 0 && frame_.Get() != nullptr) {
    *frame_.Get() = {static_cast<std::uint32_t>(choices.Below(8)), static_cast<std::uint32_t>(choices.Below(6))};
    if (what % 8 == 1) choices.Bend(*frame_.Get());
    report.frameCommand = frame_.Word();
  }
  const bool sendsOwn = what % 16 == 2 && host.record->frameCommand == 0;
  world.screen.windows.Send(page.Handle(), to_panel::frameReport, static_cast<WParam>(choices.Below(5)),
                            reinterpret_cast<LParam>(sendsOwn ? host.record.get() : &report));
}

BoxAnswer Panel::AnswerOf(const ShownBox& box) {
  const BoxAnswer first = FirstAnswer(box.style);
  return first == BoxAnswer::yes && choices.Maybe() ? BoxAnswer::no : first;
}

// A modal dialog that nobody ends is cancelled when this returns.
void Panel::ActInside(Dialog& dialog) {
  constexpr int deepest = 3;
  constexpr int mostActs = 6;
  if (!dialog.IsModal() || modalRuns_ >= deepest) return;
  ++modalRuns_;
  const WindowHandle window = dialog.Handle();
  for (int left = choices.Below(mostActs); left > 0; --left) {
    Dialog* standing = world.screen.windows.DialogOf(window);
    if (standing == nullptr || !standing->IsVisible()) break;
    choices.Below(4) == 0 ? PressKey() : ActAt(*standing, Hands::person);
  }
  --modalRuns_;
}

void RunAtDialog(Panel& panel, const std::function<Dialog*(Panel&)>& bring) {
  constexpr int mostActs = 100;
  for (int act = 0; act < mostActs && !panel.choices.IsEmpty(); ++act) {
    if (panel.Page() == nullptr && !panel.Open()) return;
    Dialog* dialog = bring(panel);
    if (dialog == nullptr) dialog = panel.Page();
    if (dialog == nullptr) continue;
    switch (panel.choices.Below(16)) {
      case 0:
        panel.PressKey();
        break;
      case 1:
        if (Dialog* page = panel.Find(dialog::general)) panel.ActAt(*page, Panel::Hands::person);
        break;
      case 2:
        panel.world.screen.input.SendClose(*dialog);
        break;
      case 3:
        panel.world.screen.input.FocusHost();
        break;
      case 4:
        panel.Open();  // the host may at any time
        break;
      default:
        panel.ActAt(*dialog, Panel::Hands::person);
    }
    Require(!WalkChecks::CheckAdjustments(*panel.host.record));
  }
}

}  // namespace set32::fuzz

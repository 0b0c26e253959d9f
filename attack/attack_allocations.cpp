// Memory that isn't to be had. Each act of a person or a host is tried again and again, and every time another one of
// the allocations inside it fails, the first, the second and so on to the last: that one alone, and with all that
// come behind it. After each the host stands, the next call gives a panel, a change in it works, it closes, and
// nothing was left allocated.
//
// What fails is whatever the panel asks for while it serves the act, and what the model of windows asks for in its
// place; the host and the person have their own memory. An act that couldn't even reach the panel counts as tried.
#include <algorithm>
#include <climits>
#include <cstdlib>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "apps/driver/choices.h"
#include "apps/driver/preview_picture.h"
#include "attack/verdict.h"
#include "platform/events.h"
#include "profile/hex_text.h"
#include "resources/dialogs.h"
#include "resources/ids.h"
#include "set32/messages.h"
#include "set32/pointer_word.h"
#include "set32/ui_fix_setting.h"
#include "tests/support/memory_files.h"
#include "tests/support/memory_world.h"

namespace {

// One thread does all of it.
struct Memory {
  bool isWatched = false;
  long asked = 0;     // allocations while it was watched
  long failFrom = 0;  // the number of the first one that fails; 0: none
  long failTo = 0;    // and of the last one
  long live = 0;      // blocks that weren't given back, watched or not
};
Memory memory;

void* Take(std::size_t size) noexcept {
  if (memory.isWatched && ++memory.asked >= memory.failFrom && memory.asked <= memory.failTo) return nullptr;
  void* const block = std::malloc(std::max<std::size_t>(size, 1));
  if (block != nullptr) ++memory.live;
  return block;
}

void* TakeOrThrow(std::size_t size) {
  if (void* const block = Take(size)) return block;
  throw std::bad_alloc();
}

void GiveBack(void* block) noexcept {
  if (block != nullptr) --memory.live;
  const std::unique_ptr<void, decltype(&std::free)> gone(block, &std::free);
}

}  // namespace

void* operator new(std::size_t size) {
  return TakeOrThrow(size);
}
void* operator new[](std::size_t size) {
  return TakeOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return Take(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return Take(size);
}
void operator delete(void* block) noexcept {
  GiveBack(block);
}
void operator delete[](void* block) noexcept {
  GiveBack(block);
}
void operator delete(void* block, std::size_t) noexcept {
  GiveBack(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  GiveBack(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
  GiveBack(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
  GiveBack(block);
}

namespace set32 {
namespace {

// Whose memory is asked for, for a scope.
class Watched {
 public:
  explicit Watched(bool watched) : before_(std::exchange(memory.isWatched, watched)) {}
  ~Watched() { memory.isWatched = before_; }
  Watched(const Watched&) = delete;
  Watched& operator=(const Watched&) = delete;

 private:
  const bool before_;
};

bool IsSame(const ScanSettings& one, const ScanSettings& other) {
  return std::ranges::equal(std::as_bytes(std::span(&one, 1)), std::as_bytes(std::span(&other, 1)));
}

enum class Face { sheet, inlined };

// A world around one panel, with a host in it.
class World : private HostWindowHandler {
 public:
  World(Face face, bool hasRows) {
    files_.content[MemoryWorld::modulePath] = "[RunTime]\nDriverType=3\n";
    files_.content[MemoryWorld::optionsPath] = std::string("[Option]\nUIFace=") +
                                               (face == Face::inlined ? "0" : "1") +
                                               "\nEnablePaperSource=1\n[Device]\nDefault=192.0.2.9\n"
                                               "[Identity]\nProductName=A product with a name of its own\n";
    if (hasRows) files_.content[MemoryWorld::profilePath] = Rows();
    preview_.MakeBlank({40, 30}, 50);
    // What a person does in a dialog that opens; it is that person's memory.
    world_.screen.windows.SetOpenedHook([this](Dialog& dialog) {
      const Watched own(false);
      if (dialog.IsModal()) ServeModal(dialog);
    });
    world_.screen.boxes.SetListener([](const ShownBox&) {});
    InstallPlatform(&world_.platform);
  }
  ~World() override {
    InstallPlatform(nullptr);
    world_.screen.windows.SetOpenedHook({});
  }
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  WindowHandle Call() {
    return uiFixSetting(host_, host_, &limits_, record.get(), preview_.Dib(), 1, 0, 128, 48, &place_, &caps_);
  }
  // The host's window goes, and then its record.
  void EndHost() {
    Hands().DestroyHostWindow(host_);
    record.reset();
  }

  Input& Hands() { return world_.screen.input; }
  HeadlessWindows& Screen() { return world_.screen.windows; }
  // The youngest dialog of a template, null for none.
  Dialog* Find(int dialogId) {
    Dialog* found = nullptr;
    for (Dialog* dialog : Screen().Standing()) {
      if (dialog->TemplateId() == dialogId) found = dialog;
    }
    return found;
  }
  // Whether the host's window takes acts: it isn't disabled.
  bool HostIsUsable() {
    Screen().MoveFocus({host_, 0});
    return Screen().Focus() == FocusPlace{host_, 0};
  }
  bool Heard(std::uint32_t message) const { return std::ranges::count(heard_, message) != 0; }
  void ForgetHeard() { heard_.clear(); }

 private:
  std::string Rows() {
    constexpr int sources = 4;
    std::string items = "[Config Items]\n";
    std::string tmp;
    for (int row = 0; row < 4 * sources; ++row) {
      ScanConfigItem item{MakeSettings(world_.system, {}), 1, 1, {}};
      if (row < 2 * sources) item.editable = 0;
      if (row < 3 * sources) item.deletable = 0;
      item.settings.dpi = 100 + row;
      item.settings.paperSource = static_cast<std::uint32_t>(row % sources);
      const std::string digits = EncodeHex({reinterpret_cast<const std::uint8_t*>(&item), sizeof item});
      items += "row number " + std::to_string(row) + " with a long name=" + digits + "\n";
      if (row == sources) tmp = digits;
    }
    return items + "[Tmp]\nTmp=" + tmp + "\n[Selected]\nReflective=1\n";
  }

  void ServeModal(Dialog& dialog) {
    const WindowHandle window = dialog.Handle();
    if (dialog.TemplateId() == dialog::saveConfig) {
      auto& edit = dialog.Get<Edit>(id104::nameEdit);
      Hands().SelectAll(edit);
      Hands().TypeText(edit, "a name that no row has yet");
    } else if (dialog.TemplateId() == dialog::addScanner) {
      Hands().FillAddress(dialog.Get<Address>(id119::address), {192, 0, 2, 7});
    }
    if (const HeadlessDialog* still = Screen().DialogOf(window)) {
      const Watched panels(true);
      still->Accept();
    }
  }

  MessageResult OnHostMessage(std::uint32_t message, WParam, LParam) override {
    const Watched own(false);
    heard_.push_back(message);
    return 1;
  }
  void OnRepaintAsked() override {}

  MemoryFiles files_;
  MemoryWorld world_{files_};
  PreviewPicture preview_;
  std::vector<std::uint32_t> heard_;
  const DeviceLimits limits_{7, 0x7FFE, 4800, 75};
  DeviceCaps caps_ = [] {
    DeviceCaps caps{};
    caps.words[DeviceCaps::restrictedMaxDpiWord] = 600;
    caps.words[DeviceCaps::sourceCapsWord] = source_caps::feeder | source_caps::transparency;
    return caps;
  }();
  const PanelRect place_{0, 0, 300, 430};
  WindowHandle host_ = world_.screen.input.MakeHostWindow({640, 480}, *this);

 public:
  std::unique_ptr<ScanSettings> record = std::make_unique<ScanSettings>(MakeSettings(world_.system, {}));
};

enum class Kind { opening, refresh, act, closing };

struct Case {
  std::string name;
  Face face;
  bool hasRows;
  Kind kind;
  int dialogId;                     // which must stand for the act
  std::function<void(World&)> act;  // with the dialog in front
  std::function<void(World&)> before = {};
};

// What a person can do at a control of this kind, each in another way.
int WaysOf(ControlKind kind) {
  switch (kind) {
    case ControlKind::label:
    case ControlKind::group:
    case ControlKind::picture:
    case ControlKind::frame:
    case ControlKind::address:
      return 0;
    case ControlKind::combo:
    case ControlKind::iconCombo:
      return 6;
    case ControlKind::edit:
    case ControlKind::list:
    case ControlKind::tab:
    case ControlKind::slider:
      return 3;
    case ControlKind::scroll:
    case ControlKind::spin:
      return 2;
    default:
      return 1;
  }
}

constexpr std::string_view typed[] = {"123", "99999", "0.5"};

void ActOn(Input& hands, Control& control, int way) {
  switch (control.Kind()) {
    case ControlKind::edit:
      hands.Focus(control);
      hands.SelectAll(static_cast<Edit&>(control));
      hands.TypeText(static_cast<Edit&>(control), typed[way]);
      return hands.FocusHost();
    case ControlKind::combo:
    case ControlKind::iconCombo:
      return way == 0 ? hands.DropList(static_cast<Combo&>(control))
                      : hands.PickEntry(static_cast<Combo&>(control), way - 1);
    case ControlKind::tab:
      return hands.ChooseTab(static_cast<TabBar&>(control), way);
    case ControlKind::list:
      return hands.ClickRow(static_cast<List&>(control), way * 2 - 1);
    case ControlKind::slider:
      if (way == 2) return hands.Release(static_cast<Slider&>(control));
      return hands.ScrollTo(control, scroll_code::thumbTrack, way == 0 ? 3 : 40);
    case ControlKind::scroll:
      return hands.ScrollTo(control, scroll_code::thumbTrack, way == 0 ? 3 : 40);
    case ControlKind::spin:
      return hands.SpinBy(static_cast<Spin&>(control), way == 0 ? 1 : -1);
    default:
      return hands.Poke(control);
  }
}

class Cases {
 public:
  static std::vector<Case> All() {
    Cases cases;
    for (const Face face : {Face::sheet, Face::inlined}) cases.AddFace(face);
    return std::move(cases.list_);
  }

 private:
  void AddFace(Face face) {
    const auto nothing = [](World&) {};
    for (const bool hasRows : {false, true}) Add("opening", face, hasRows, Kind::opening, 0, nothing);
    Add("refresh", face, true, Kind::refresh, 0, nothing);
    Add("closing", face, true, Kind::closing, 0, [face](World& world) {
      if (face == Face::inlined) return world.Hands().SendClose(*world.Find(dialog::general));
      world.EndHost();
    });
    Add("the host's end", face, true, Kind::closing, 0, [](World& world) { world.EndHost(); });
    AddPage(face);
    AddControls(face, dialog::general, nothing);
    if (face == Face::sheet) {
      AddControls(face, dialog::sheet, nothing);
      for (int tab = 0; tab < 3; ++tab) {
        AddControls(face, dialog::advanced, [tab](World& world) {
          world.Hands().TurnToTab(world.Find(dialog::sheet)->Get<TabBar>(id_sheet::tabs), 1);
          world.Hands().TurnToTab(world.Find(dialog::advanced)->Get<TabBar>(id148::viewTabs), tab);
        });
      }
    } else {
      const auto open = [](World& world) {
        world.Hands().Click(*world.Find(dialog::general)->Find(id::advancedButton));
      };
      AddControls(face, dialog::gamma, open);
      const auto close = [](World& world) { world.Hands().SendClose(*world.Find(dialog::gamma)); };
      Add("closing dialog 103", face, true, Kind::act, dialog::gamma, close, open);
      Add("dialog 103 once more", face, true, Kind::act, dialog::general, open, [=](World& world) {
        open(world);
        close(world);
      });
    }
  }

  // What reaches a page beside its controls.
  void AddPage(Face face) {
    const auto add = [&](const std::string& name, std::function<void(World&)> act) {
      Add(name, face, true, Kind::act, dialog::general, std::move(act));
    };
    add("an arrow in the list",
        [](World& world) { world.Hands().ArrowTo(world.Find(dialog::general)->Get<List>(id::configList), 4); });
    add("a resize", [](World& world) { world.Hands().Resize(*world.Find(dialog::general), {280, 520}); });
    add("paint", [](World& world) { world.Hands().Pump(); });
    add("disabling", [](World& world) { world.Find(dialog::general)->SetEnabled(false); });
    for (const WParam change : {frame_report::drawn, frame_report::cropped, frame_report::cropAgain}) {
      add("report " + std::to_string(change), [change](World& world) {
        ScanSettings report = *world.record;
        report.width = 3.5;
        report.height = 2.25;
        report.units = 1;
        LowMemory<FrameCommand> frame;
        if (frame.Get() != nullptr) *frame.Get() = {1, frame_action::added};
        report.frameCommand = frame.Word();
        world.Screen().Send(world.Find(dialog::general)->Handle(), to_panel::frameReport, change,
                            reinterpret_cast<LParam>(&report));
      });
    }
    for (const std::uint32_t message : {to_panel::autoCropOff, to_panel::askAddress}) {
      add("message " + std::to_string(message),
          [message](World& world) { world.Screen().Send(world.Find(dialog::general)->Handle(), message, 0, 0); });
    }
  }

  void AddControls(Face face, int dialogId, const std::function<void(World&)>& before) {
    for (const ControlTemplate& control : FindDialog(dialogId)->controls) {
      for (int way = 0; way < WaysOf(control.kind); ++way) {
        Add(
            std::to_string(dialogId) + "." + std::to_string(control.id) + " #" + std::to_string(way), face, true,
            Kind::act, dialogId,
            [dialogId, id = control.id, way](World& world) {
              ActOn(world.Hands(), *world.Find(dialogId)->Find(id), way);
            },
            before);
      }
    }
  }

  void Add(
      const std::string& name, Face face, bool hasRows, Kind kind, int dialogId, std::function<void(World&)> act,
      std::function<void(World&)> before = [](World&) {}) {
    list_.push_back({(face == Face::sheet ? "sheet: " : "inline: ") + name, face, hasRows, kind, dialogId,
                     std::move(act), std::move(before)});
  }

  std::vector<Case> list_;
};

using Fault = std::optional<std::string>;

// Which allocations of an act fail: the one of this number, and those behind it or not. 0: none.
struct Shortage {
  long from = 0;
  bool lasts = false;
};

// One act in a world of its own.
class Attempt {
 public:
  Attempt(const Case& tried, Shortage shortage) : case_(tried), shortage_(shortage) {}

  Fault Go() {
    const long live = memory.live;
    Fault fault = Play();
    if (!fault && memory.live != live) fault = std::to_string(memory.live - live) + " blocks were left";
    return fault;
  }
  // Allocations of the act.
  long Asked() const { return asked_; }
  bool Failed() const { return shortage_.from != 0 && asked_ >= shortage_.from; }

 private:
  Fault Play() {
    World world(case_.face, case_.hasRows);
    if (case_.kind != Kind::opening) {
      if (world.Call() == 0) return "no panel to begin with";
      case_.before(world);
      if (case_.dialogId != 0 && world.Find(case_.dialogId) == nullptr) return "no dialog to begin with";
    }
    const ScanSettings given = *world.record;
    const WindowHandle page = Act(world);
    if (world.record == nullptr) return Gone(world);
    for (const Dialog* dialog : world.Screen().Standing()) {
      if (dialog->IsModal()) return "a modal dialog stands";
    }
    if (!world.HostIsUsable()) return "the host's window is disabled";
    if (case_.kind == Kind::opening || case_.kind == Kind::refresh) {
      if (Failed() && page == 0 && !IsSame(given, *world.record)) return "the record isn't as before";
      if (case_.kind == Kind::opening && page == 0 && !world.Screen().Standing().empty())
        return "a dialog stands though the call gave none";
      if (case_.kind == Kind::refresh && world.Find(dialog::general) == nullptr) return "the panel is gone";
      if (!Failed() && page == 0) return "no panel";
    }
    return GoesOn(world);
  }

  WindowHandle Act(World& world) {
    WindowHandle page = 0;
    memory.asked = 0;
    memory.failFrom = shortage_.from;
    memory.failTo = shortage_.lasts ? LONG_MAX : shortage_.from;
    {
      const Watched panels(true);
      try {
        if (case_.kind == Kind::opening || case_.kind == Kind::refresh) {
          page = world.Call();
        } else {
          case_.act(world);
        }
      } catch (const std::bad_alloc&) {
        // It never reached the panel, or a call of the two functions let it out, which the page then tells.
      }
    }
    memory.failFrom = memory.failTo = 0;
    asked_ = memory.asked;
    return page;
  }

  static Fault Gone(World& world) {
    return world.Screen().Standing().empty() ? Fault() : "a dialog outlives the host's window";
  }

  // A later call gives a whole panel, a person changes something in it, and it ends.
  static Fault GoesOn(World& world) {
    if (Dialog* disabled = world.Find(dialog::general)) disabled->SetEnabled(true);
    const WindowHandle page = world.Call();
    Dialog* dialog = world.Screen().DialogOf(page);
    if (dialog == nullptr) return "the next call gives no panel";
    for (const int list : {id::sizeCombo, id::unitCombo, id::sourceCombo, id::modeCombo, id::resolutionCombo}) {
      if (dialog->Get<Combo>(list).Count() < 2) return "the next panel's list " + std::to_string(list) + " lacks";
    }
    if (dialog->Get<List>(id::configList).Count() == 0) return "the next panel has no rows";
    world.ForgetHeard();
    world.Hands().PickEntry(dialog->Get<Combo>(id::resolutionCombo), 2);
    if (!world.Heard(to_host::resolutionChanged)) return "a change in the next panel isn't heard";
    if (world.record->resolutionId != dialog->Get<Combo>(id::resolutionCombo).Data(2))
      return "a change in the next panel isn't in the record";
    world.EndHost();
    return Gone(world);
  }

  const Case& case_;
  const Shortage shortage_;
  long asked_ = 0;
};

// Every failure of every act; in an order that spreads over all of them from the start.
AttackOutcome FailEverywhere(const AttackOrder& order) {
  struct Failure {
    const Case* tried;
    Shortage shortage;
  };
  const std::vector<Case> cases = Cases::All();
  std::vector<Failure> failures;
  for (const Case& each : cases) {
    Attempt(each, {}).Go();  // what is made once in a process
    Attempt whole(each, {});
    if (const Fault fault = whole.Go()) return Fell("none failed", each.name + ": " + *fault);
    for (long at = 1; at <= whole.Asked(); ++at) {
      for (const bool lasts : {false, true}) failures.push_back({&each, {at, lasts}});
    }
  }
  Dice dice(order.seed);
  for (std::size_t i = failures.size(); i > 1; --i) {
    std::swap(failures[i - 1], failures[static_cast<std::size_t>(dice.Below(static_cast<int>(i)))]);
  }
  std::size_t done = 0;
  const auto figures = [&] {
    return std::to_string(done) + " of " + std::to_string(failures.size()) + " shortages in " +
           std::to_string(cases.size()) + " acts";
  };
  for (; done < failures.size() && order.GoesOn(); ++done) {
    const Failure& failure = failures[done];
    if (const Fault fault = Attempt(*failure.tried, failure.shortage).Go()) {
      return Fell(figures(), failure.tried->name + ", allocation " + std::to_string(failure.shortage.from) +
                                 (failure.shortage.lasts ? " and all behind it: " : ": ") + *fault);
    }
  }
  return Held(figures());
}

}  // namespace
}  // namespace set32

int main(int count, char** words) {
  return set32::RunAttack("allocations", count, words, set32::FailEverywhere);
}

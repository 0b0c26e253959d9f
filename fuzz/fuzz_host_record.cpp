// Any bytes as the host's records, as records that were stored, as the host's reports and as what a person does at
// the pages of both faces and at their dialogs; and a host that may go away, with its record, or end a page or turn
// to the other face, inside any message.
//
// Opening the panel costs more than a dozen acts, so one input carries many: a short head that bends the records of
// an ordinary host, then acts up to its end. The panel's pictures are read once, not once an input.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/events.h"
#include "profile/hex_text.h"
#include "resources/embedded_pictures.h"
#include "resources/ids.h"
#include "resources/picture_reader.h"
#include "resources/pictures.h"
#include "set32/messages.h"
#include "set32/pointer_word.h"
#include "tests/support/memory_files.h"
#include "tests/support/memory_world.h"

// In the place of the library's own.
set32::Picture set32::LoadPicture(std::string_view name) {
  static std::map<std::string, Picture, std::less<>> known;
  const auto found = known.find(name);
  if (found != known.end()) return found->second;
  Picture picture;
  for (const EmbeddedPicture& embedded : EmbeddedPictures()) {
    if (embedded.name == name) picture = ReadPicture(embedded.bytes);
  }
  picture.name = name;
  return known.emplace(name, std::move(picture)).first->second;
}

namespace {

using namespace set32;

class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}
  bool IsEmpty() const { return rest_.empty(); }
  // 0 where the bytes end.
  std::uint8_t Next() {
    std::uint8_t byte = 0;
    Take(&byte, 1);
    return byte;
  }
  // Writes over a few places of a record, each 1, 2, 4 or 8 bytes wide.
  template <typename T>
  void Bend(T& record) {
    static_assert(sizeof(record) % 8 == 0);
    for (int left = Next() % 8; left > 0; --left) {
      const std::size_t width = std::size_t{1} << Next() % 4;
      Take(reinterpret_cast<std::uint8_t*>(&record) + Next() * width % sizeof(record), width);
    }
  }

 private:
  void Take(std::uint8_t* into, std::size_t size) {
    size = std::min(size, rest_.size());
    std::copy_n(rest_.begin(), size, into);
    rest_ = rest_.subspan(size);
  }

  std::span<const std::uint8_t> rest_;
};

constexpr int mostActs = 200;

constexpr const char* typed[] = {"1", "300", "0.30", "8.5", "99999999", "", ".", "19200", "-1", "3.333"};
constexpr int combos[] = {id::resolutionCombo, id::sizeCombo, id::unitCombo, id::modeCombo, id::sourceCombo};
constexpr int edits[] = {id::resolutionEdit, id::widthEdit, id::heightEdit};
constexpr int buttons[] = {id::autoCropCheck, id::removeFrameButton, id::grayRadio,
                           id::saveButton,    id::deleteButton,      id::advancedButton};
constexpr int scrollCodes[] = {scroll_code::lineLeft,  scroll_code::lineRight,     scroll_code::pageLeft,
                               scroll_code::pageRight, scroll_code::thumbPosition, scroll_code::thumbTrack,
                               scroll_code::endScroll};

class Run {
 public:
  explicit Run(Bytes bytes) : bytes_(bytes), world_(files_), host_(world_) {
    files_.content[MemoryWorld::modulePath] = "[RunTime]\nDriverType=0\n";
    leaveAt_ = bytes_.Next();
    const std::uint8_t given = bytes_.Next();
    ChooseFace((given & 32) != 0);
    host_.jpegModes = (given & 64) != 0;
    if ((given & 128) != 0) host_.outputBits = bytes_.Next();
    host_.caps = DeviceCaps{};
    host_.caps->words[DeviceCaps::restrictedMaxDpiWord] = 600;
    host_.caps->words[DeviceCaps::sourceCapsWord] = 0x60000;
    bytes_.Bend(*host_.record);
    bytes_.Bend(*host_.limits);
    bytes_.Bend(*host_.caps);
    bytes_.Bend(host_.place);
    if ((given & 1) != 0) host_.limits.reset();
    if ((given & 2) != 0) host_.caps.reset();
    if ((given & 4) != 0) leaveAt_ *= 8;
    if ((given & 8) != 0) {
      header_.width = 40;
      header_.height = 30;
      header_.pixelsPerMetreX = bytes_.Next() * 100;
      preview_.header = &header_;
    }
    files_.content[MemoryWorld::profilePath] = (given & 16) != 0 ? StoredRecords() : "[Config Items]\n";
    host_.heard = [this](std::uint32_t) {
      if (leaveAt_ == 0 || --leaveAt_ != 0) return;
      LeaveInside();
    };
  }

  void Go() {
    Module module(world_.platform);
    module_ = &module;
    Call();
    for (int act = 0; act < mostActs && !bytes_.IsEmpty() && host_.record != nullptr; ++act) {
      if (Dialog* page = world_.screen.windows.DialogOf(page_)) {
        Act(*page);
      } else {
        Call();
        if (page_ == 0) break;
      }
    }
    EndHost();
    preview_.header = nullptr;
  }

 private:
  // Two rows and the settings of the last time, all bent.
  std::string StoredRecords() {
    std::string items = "[Config Items]\n";
    std::string tmp;
    for (const char* name : {"first", "second"}) {
      ScanConfigItem item{MakeSettings(world_.system, {}), 1, 1, {}};
      bytes_.Bend(item);
      const std::string digits = EncodeHex(std::span(reinterpret_cast<const std::uint8_t*>(&item), sizeof(item)));
      items.append(name).append("=").append(digits).append("\n");
      tmp = digits;
    }
    return items + "[Tmp]\nTmp=" + tmp + "\n";
  }

  void ChooseFace(bool isInline) {
    files_.content[MemoryWorld::optionsPath] =
        std::string("[Option]\nLLDriverInterface=1\nEnablePaperSource=1\nUIFace=") + (isInline ? "0\n" : "1\n") +
        "[OPTION]\nLLDriverInterface=1\nEnablePaperSource=1\nAppName=a\nEnable36BitApps=a\n";
  }

  void Call() {
    const Dialog* page = host_.Open(*module_, preview_.header != nullptr ? &preview_ : nullptr);
    page_ = page != nullptr ? page->Handle() : 0;
  }

  // What a host may do inside a message.
  void LeaveInside() {
    const std::uint8_t how = bytes_.Next();
    leaveAt_ = how / 4;
    switch (how % 4) {
      case 0:
        return EndHost();
      case 1:
        if (Dialog* page = world_.screen.windows.DialogOf(page_)) world_.screen.input.SendClose(*page);
        return;
      case 2:
        ChooseFace((how & 4) != 0);
        return Call();
      default:
        return ActAnywhere();
    }
  }

  // At any control of any window that stands, also a hidden one, as a program may.
  void ActAnywhere() {
    const auto standing = world_.screen.windows.Standing();
    if (standing.empty()) return;
    Dialog& dialog = *standing[bytes_.Next() % standing.size()];
    const std::uint8_t what = bytes_.Next();
    const auto& controls = dialog.Controls();
    if (what == 0) return world_.screen.input.SendClose(dialog);
    if (what % 8 == 1)
      return world_.screen.input.PressKey(static_cast<Key>(what / 8 % (static_cast<int>(Key::end) + 1)));
    if (!controls.empty()) ActOn(*controls[bytes_.Next() % controls.size()], what);
  }

  void ActOn(Control& control, std::uint8_t what) {
    Input& hands = world_.screen.input;
    switch (control.Kind()) {
      case ControlKind::edit:
        hands.Focus(control);
        hands.SelectAll(static_cast<Edit&>(control));
        return hands.TypeText(static_cast<Edit&>(control), typed[what % std::size(typed)]);
      case ControlKind::combo:
      case ControlKind::iconCombo:
        return hands.PickEntry(static_cast<Combo&>(control), what % 16);
      case ControlKind::tab:
        return hands.ChooseTab(static_cast<TabBar&>(control), what % 4);
      case ControlKind::list:
        return hands.ClickRow(static_cast<List&>(control), what % 12 - 1);
      case ControlKind::spin:
        return hands.SpinBy(static_cast<Spin&>(control), what % 9 - 4);
      case ControlKind::slider:
        if (what % 16 == 2) return hands.Release(static_cast<Slider&>(control));
        [[fallthrough]];
      case ControlKind::scroll:
        return hands.ScrollTo(control, scrollCodes[what % std::size(scrollCodes)], bytes_.Next() * 9 - 1000);
      default:
        return (what & 4) != 0 ? hands.Click(control) : hands.Poke(control);
    }
  }

  void Act(Dialog& page) {
    Input& hands = world_.screen.input;
    const std::uint8_t what = bytes_.Next();
    const std::uint8_t which = bytes_.Next();
    switch (what % 16) {
      case 0:
      case 1:
        Report(page, which);
        break;
      case 2:
        hands.PickEntry(page.Get<Combo>(combos[which % 5]), which / 5 % 16);
        break;
      case 3: {
        auto& edit = page.Get<Edit>(edits[which % 3]);
        hands.Focus(edit);
        hands.SelectAll(edit);
        hands.TypeText(edit, typed[which / 3 % 10]);
        if ((which & 0x80) == 0) hands.FocusHost();
        break;
      }
      case 4:
        hands.Click(page.Get<Control>(buttons[which % std::size(buttons)]));
        break;
      case 5:
        hands.ClickRow(page.Get<List>(id::configList), which % 12 - 1);
        break;
      case 6:
        hands.ArrowTo(page.Get<List>(id::configList), which % 12);
        break;
      case 7:
        hands.ChooseTab(page.Get<TabBar>(id::frameTabs), which % 4);
        break;
      case 8:
        bytes_.Bend(*host_.record);  // the host may write at any time
        break;
      case 9:
        CallWithOthers();
        break;
      case 10:
        ChooseFace((which & 1) != 0);
        break;
      case 11:
      case 12:
      case 13:
      case 14:
        ActAnywhere();
        break;
      default:
        hands.Resize(page, {which * 7 - 100, which * 3 - 50});
    }
  }

  // The host calls again, with a record of its own and other limits; the old record stays, since the page of the
  // other face may have it still.
  void CallWithOthers() {
    auto other = std::make_unique<ScanSettings>(*host_.record);
    bytes_.Bend(*other);
    if (host_.limits) bytes_.Bend(*host_.limits);
    bytes_.Bend(host_.place);
    std::swap(host_.record, other);
    earlier_.push_back(std::move(other));
    Call();
  }

  void EndHost() {
    host_.End();
    earlier_.clear();
  }

  void Report(Dialog& page, std::uint8_t which) {
    ScanSettings report = *host_.record;
    bytes_.Bend(report);
    report.frameCommand = 0;
    if ((which & 4) != 0 && frame_.Get() != nullptr) {
      *frame_.Get() = {static_cast<std::uint32_t>(which >> 5), (which >> 3 & 3U) + 1};
      bytes_.Bend(*frame_.Get());
      report.frameCommand = frame_.Word();
    }
    const ScanSettings* sent = (which & 0x40) != 0 && host_.record->frameCommand == 0 ? host_.record.get() : &report;
    world_.screen.windows.Send(page.Handle(), to_panel::frameReport, which % 4, reinterpret_cast<LParam>(sent));
  }

  Bytes bytes_;
  MemoryFiles files_;
  MemoryWorld world_;
  std::vector<std::unique_ptr<ScanSettings>> earlier_;
  MemoryHost host_;
  Module* module_ = nullptr;
  BitmapInfoHeader header_{};
  CDib preview_;
  LowMemory<FrameCommand> frame_;
  WindowHandle page_ = 0;
  int leaveAt_ = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Run(Bytes(data, size)).Go();
  return 0;
}

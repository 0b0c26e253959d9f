// Any bytes as the host's records, as records that were stored, as the host's reports and as what a person does at
// the page; and a host that may go away, with its record, inside any message.
//
// Opening the panel costs more than a dozen acts, so one input carries many: a short head that bends the records of
// an ordinary host, then acts up to its end. The panel's pictures are read once, not once an input.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "messages.h"
#include "pointer_word.h"
#include "profile/hex_text.h"
#include "resources/embedded_pictures.h"
#include "resources/ids.h"
#include "resources/picture_reader.h"
#include "resources/pictures.h"
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
constexpr int buttons[] = {id::autoCropCheck, id::removeFrameButton, id::grayRadio, id::saveButton, id::deleteButton};

class Run {
 public:
  explicit Run(Bytes bytes) : bytes_(bytes), world_(files_), host_(world_) {
    files_.content[MemoryWorld::optionsPath] = "[Option]\nLLDriverInterface=1\nEnablePaperSource=1\n";
    files_.content[MemoryWorld::modulePath] = "[RunTime]\nDriverType=0\n";
    leaveAt_ = bytes_.Next();
    const std::uint8_t given = bytes_.Next();
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
      if (leaveAt_ != 0 && --leaveAt_ == 0) host_.End();
    };
  }

  void Go() {
    Module module(world_.platform);
    module_ = &module;
    Call();
    for (int act = 0; act < mostActs && !bytes_.IsEmpty() && page_ != nullptr && host_.record != nullptr; ++act)
      Act();
    host_.End();
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

  void Call() { page_ = host_.Open(*module_, preview_.header != nullptr ? &preview_ : nullptr); }

  void Act() {
    Input& hands = world_.screen.input;
    const std::uint8_t what = bytes_.Next();
    const std::uint8_t which = bytes_.Next();
    switch (what % 11) {
      case 0:
      case 1:
        Report(which);
        break;
      case 2:
        hands.PickEntry(page_->Get<Combo>(combos[which % 5]), which / 5 % 16);
        break;
      case 3: {
        auto& edit = page_->Get<Edit>(edits[which % 3]);
        hands.Focus(edit);
        hands.SelectAll(edit);
        hands.TypeText(edit, typed[which / 3 % 10]);
        if ((which & 0x80) == 0) hands.FocusHost();
        break;
      }
      case 4:
        hands.Click(page_->Get<Control>(buttons[which % 5]));
        break;
      case 5:
        hands.ClickRow(page_->Get<List>(id::configList), which % 12 - 1);
        break;
      case 6:
        hands.ArrowTo(page_->Get<List>(id::configList), which % 12);
        break;
      case 7:
        hands.ChooseTab(page_->Get<TabBar>(id::frameTabs), which % 4);
        break;
      case 8:
        bytes_.Bend(*host_.record);  // the host may write at any time
        break;
      case 9:
        CallWithOthers(which);
        break;
      default:
        hands.Resize(*page_, {which * 7 - 100, which * 3 - 50});
    }
  }

  // The host calls again, with a record of its own and other limits; the old record stays until the call returns.
  void CallWithOthers(std::uint8_t which) {
    auto other = std::make_unique<ScanSettings>(*host_.record);
    bytes_.Bend(*other);
    if (host_.limits) bytes_.Bend(*host_.limits);
    bytes_.Bend(host_.place);
    std::swap(host_.record, other);
    if ((which & 1) != 0)
      Call();
    else
      std::swap(host_.record, other);
  }

  void Report(std::uint8_t which) {
    ScanSettings report = *host_.record;
    bytes_.Bend(report);
    report.frameCommand = 0;
    if ((which & 4) != 0 && frame_.Get() != nullptr) {
      *frame_.Get() = {static_cast<std::uint32_t>(which >> 5), (which >> 3 & 3U) + 1};
      bytes_.Bend(*frame_.Get());
      report.frameCommand = frame_.Word();
    }
    const ScanSettings* sent = (which & 0x40) != 0 && host_.record->frameCommand == 0 ? host_.record.get() : &report;
    world_.screen.windows.Send(page_->Handle(), to_panel::frameReport, which % 4, reinterpret_cast<LParam>(sent));
  }

  Bytes bytes_;
  MemoryFiles files_;
  MemoryWorld world_;
  MemoryHost host_;
  Module* module_ = nullptr;
  BitmapInfoHeader header_{};
  CDib preview_;
  LowMemory<FrameCommand> frame_;
  Dialog* page_ = nullptr;
  int leaveAt_ = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Run(Bytes(data, size)).Go();
  return 0;
}

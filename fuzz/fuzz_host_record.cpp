// Any bytes as the host's records, its reports and what a person does at the page; and a host that may go away, with
// its record, inside any message.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>

#include "messages.h"
#include "pointer_word.h"
#include "resources/ids.h"
#include "tests/support/memory_files.h"
#include "tests/support/memory_world.h"

namespace {

using namespace set32;

class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}
  bool IsEmpty() const { return rest_.empty(); }
  std::uint8_t Next() {
    std::uint8_t byte = 0;
    Fill(byte);
    return byte;
  }
  // Zeros where the bytes end.
  template <typename T>
  void Fill(T& record) {
    const std::size_t size = std::min(sizeof(record), rest_.size());
    std::memset(static_cast<void*>(&record), 0, sizeof(record));
    if (size != 0) std::memcpy(static_cast<void*>(&record), rest_.data(), size);
    rest_ = rest_.subspan(size);
  }

 private:
  std::span<const std::uint8_t> rest_;
};

constexpr const char* typed[] = {"1", "300", "0.30", "8.5", "99999999", "", ".", "19200", "-1", "3.333"};
constexpr int combos[] = {id::resolutionCombo, id::sizeCombo, id::unitCombo, id::modeCombo, id::sourceCombo};
constexpr int edits[] = {id::resolutionEdit, id::widthEdit, id::heightEdit};
constexpr int buttons[] = {id::autoCropCheck, id::removeFrameButton, id::grayRadio, id::saveButton, id::deleteButton};

class Run {
 public:
  explicit Run(Bytes bytes) : bytes_(bytes), world_(files_), module_(world_.platform), host_(world_) {
    files_.content[MemoryWorld::optionsPath] = "[Option]\nLLDriverInterface=1\nEnablePaperSource=1\n";
    leaveAt_ = bytes_.Next();
    const std::uint8_t given = bytes_.Next();
    bytes_.Fill(*host_.record);
    bytes_.Fill(host_.limits.emplace());
    bytes_.Fill(host_.caps.emplace());
    bytes_.Fill(host_.place);
    if ((given & 1) != 0) host_.limits.reset();
    if ((given & 2) != 0) host_.caps.reset();
    // With a stored record the host's own is replaced at the start.
    if ((given & 4) == 0) files_.content[MemoryWorld::profilePath] = "[Config Items]\n";
    if ((given & 8) != 0) {
      header_.width = 40;
      header_.height = 30;
      bytes_.Fill(header_.pixelsPerMetreX);
      preview_.header = &header_;
    }
    host_.heard = [this](std::uint32_t) {
      if (leaveAt_ != 0 && --leaveAt_ == 0) host_.End();
    };
  }

  void Go() {
    page_ = host_.Open(module_, preview_.header != nullptr ? &preview_ : nullptr);
    while (!bytes_.IsEmpty() && page_ != nullptr && host_.record != nullptr) Step();
    host_.End();
    preview_.header = nullptr;
  }

 private:
  void Step() {
    Input& hands = world_.desk.input;
    const std::uint8_t what = bytes_.Next();
    const std::uint8_t which = bytes_.Next();
    switch (what % 8) {
      case 0:
        Report(which);
        break;
      case 1:
        hands.PickEntry(page_->Get<Combo>(combos[which % 5]), which / 5 % 16);
        break;
      case 2: {
        auto& edit = page_->Get<Edit>(edits[which % 3]);
        hands.Focus(edit);
        hands.SelectAll(edit);
        hands.TypeText(edit, typed[which / 3 % 10]);
        if ((which & 0x80) == 0) hands.FocusHost();
        break;
      }
      case 3:
        hands.Click(page_->Get<Control>(buttons[which % 5]));
        break;
      case 4:
        hands.ClickRow(page_->Get<List>(id::configList), which % 12 - 1);
        break;
      case 5:
        bytes_.Fill(*host_.record);  // the host may write at any time
        break;
      case 6:
        page_ = host_.Open(module_, preview_.header != nullptr ? &preview_ : nullptr);
        break;
      default:
        hands.Resize(*page_, {which * 7 - 100, which * 3 - 50});
    }
  }

  void Report(std::uint8_t which) {
    ScanSettings report{};
    bytes_.Fill(report);
    report.frameCommand = 0;
    if ((which & 4) != 0 && frame_.Get() != nullptr) {
      bytes_.Fill(*frame_.Get());
      report.frameCommand = frame_.Word();
    }
    const ScanSettings* sent = (which & 8) != 0 && host_.record->frameCommand == 0 ? host_.record.get() : &report;
    world_.desk.windows.Send(page_->Handle(), to_panel::frameReport, which % 4, reinterpret_cast<LParam>(sent));
  }

  Bytes bytes_;
  MemoryFiles files_;
  MemoryWorld world_;
  Module module_;
  MemoryHost host_;
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

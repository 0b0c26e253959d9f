// Any bytes as the host's records, as records that were stored, as the host's reports and as what happens at the
// pages of both faces and at their dialogs; and a host that may go away, with its record, or end a page or turn to
// the other face, inside any message.
//
// An input is a short head that bends the records of an ordinary host, then acts up to its end.
#include <memory>
#include <utility>
#include <vector>

#include "fuzz/support/panel.h"
#include "profile/hex_text.h"
#include "resources/ids.h"

namespace {

using namespace set32;
using namespace set32::fuzz;

constexpr int mostActs = 200;

class Run {
 public:
  explicit Run(std::span<const std::uint8_t> bytes) : panel_(bytes) {
    leaveAt_ = choices_.Next();
    const std::uint8_t given = choices_.Next();
    panel_.ChooseFace((given & 32) != 0 ? Face::inlinePage : Face::sheet);
    host_.jpegModes = (given & 64) != 0;
    if ((given & 128) != 0) host_.outputBits = choices_.Next();
    choices_.Bend(*host_.record);
    choices_.Bend(*host_.limits);
    choices_.Bend(*host_.caps);
    choices_.Bend(host_.place);
    if ((given & 1) != 0) host_.limits.reset();
    if ((given & 2) != 0) host_.caps.reset();
    if ((given & 4) != 0) leaveAt_ *= 8;
    if ((given & 8) != 0) {
      header_.width = 40;
      header_.height = 30;
      header_.pixelsPerMetreX = choices_.Next() * 100;
      preview_.header = &header_;
      panel_.preview = &preview_;
    }
    if ((given & 16) != 0) panel_.files.content[MemoryWorld::profilePath] = StoredRecords();
    host_.heard = [this](std::uint32_t) {
      if (leaveAt_ != 0 && --leaveAt_ == 0) LeaveInside();
    };
  }
  ~Run() {
    EndHost();
    preview_.header = nullptr;
  }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  void Go() {
    panel_.Open();
    for (int act = 0; act < mostActs && !choices_.IsEmpty() && host_.record != nullptr; ++act) {
      if (Dialog* page = panel_.Page()) {
        Act(*page);
      } else if (!panel_.Open()) {
        break;
      }
    }
  }

 private:
  // Two rows and the settings of the last time, all bent.
  std::string StoredRecords() {
    std::string items = "[Config Items]\n";
    std::string tmp;
    for (const char* name : {"first", "second"}) {
      ScanConfigItem item{MakeSettings(panel_.world.system, {}), 1, 1, {}};
      choices_.Bend(item);
      tmp = EncodeHex(std::span(reinterpret_cast<const std::uint8_t*>(&item), sizeof(item)));
      items.append(name).append("=").append(tmp).append("\n");
    }
    return items + "[Tmp]\nTmp=" + tmp + "\n";
  }

  // What a host may do inside a message.
  void LeaveInside() {
    const std::uint8_t how = choices_.Next();
    leaveAt_ = how / 4;
    switch (how % 4) {
      case 0:
        return EndHost();
      case 1:
        if (Dialog* page = panel_.Page()) panel_.world.screen.input.SendClose(*page);
        return;
      case 2:
        panel_.ChooseFace((how & 4) != 0 ? Face::inlinePage : Face::sheet);
        panel_.Open();
        return;
      default:
        return panel_.ActAnywhere();
    }
  }

  void Act(Dialog& page) {
    switch (choices_.Below(12)) {
      case 0:
      case 1:
        return panel_.Report(page);
      case 2:
        return choices_.Bend(*host_.record);  // the host may write at any time
      case 3:
        return CallWithOthers();
      case 4:
        return panel_.ChooseFace(choices_.Maybe() ? Face::inlinePage : Face::sheet);
      case 5:
        return panel_.world.screen.input.FocusHost();
      case 6:
      case 7:
      case 8:
        return panel_.ActAnywhere();
      default:
        return panel_.ActAt(page, Panel::Hands::person);
    }
  }

  // The host calls again, with a record of its own and other limits; the old record stays, since the page of the
  // other face may have it still.
  void CallWithOthers() {
    auto other = std::make_unique<ScanSettings>(*host_.record);
    choices_.Bend(*other);
    if (host_.limits) choices_.Bend(*host_.limits);
    choices_.Bend(host_.place);
    std::swap(host_.record, other);
    earlier_.push_back(std::move(other));
    panel_.Open();
  }

  void EndHost() {
    host_.End();
    earlier_.clear();
  }

  std::vector<std::unique_ptr<ScanSettings>> earlier_;
  BitmapInfoHeader header_{};
  CDib preview_;
  Panel panel_;
  Choices& choices_ = panel_.choices;
  MemoryHost& host_ = panel_.host;
  int leaveAt_ = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Run({data, size}).Go();
  return 0;
}

// A picture that a host made: wild headers and sizes, buffers that are missing, and another picture in the same
// object between any two messages. Either face opens over it, its values change, it is refreshed. Nothing beyond a
// buffer is read or written, and the pixels as scanned stay as they were.
#include <limits>
#include <memory>

#include "fuzz/support/panel.h"
#include "fuzz/support/picture.h"
#include "resources/ids.h"
#include "set32/messages.h"

namespace {

using namespace set32;
using namespace set32::fuzz;

constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t lengths[] = {16, 17, 5, 1, 2, 3, 4, 7, 8, 33, 64, 0, -1, -16, least, most, 0x55555556};
constexpr std::int32_t densities[] = {3937, 0, -1, 1, 11811, least, most};
constexpr std::int32_t values[] = {0, 50, -50, 100, -100, 101, least, most};
constexpr double gammas[] = {1,
                             0,
                             -1,
                             0.01,
                             10,
                             1e308,
                             -1e308,
                             1e-308,
                             std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()};
constexpr std::uint16_t depths[] = {24, 24, 24, 24, 1, 8, 16, 32, 0, 0xFFFF};

class Run {
 public:
  explicit Run(std::span<const std::uint8_t> bytes) : panel_(bytes) {
    panel_.preview = &dib_;
    panel_.host.heard = [this](std::uint32_t) {
      if (replaceAt_ != 0 && --replaceAt_ == 0) Replace();
    };
  }
  ~Run() { panel_.host.End(); }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  void Go() {
    constexpr int mostActs = 60;
    const int given = choices_.Next();
    replaceAt_ = given >> 2;
    panel_.ChooseFace((given & 1) != 0 ? Face::inlinePage : Face::sheet);
    Replace();
    if (!panel_.Open()) return;
    if ((given & 2) != 0) TurnToAdjustments();
    for (int act = 0; act < mostActs && !choices_.IsEmpty(); ++act) {
      Act();
      Require(picture_->IsAsScanned());
    }
  }

 private:
  void TurnToAdjustments() {
    Input& hands = panel_.world.screen.input;
    if (Dialog* sheet = panel_.Find(dialog::sheet)) return hands.TurnToTab(sheet->Get<TabBar>(id_sheet::tabs), 1);
    if (Dialog* page = panel_.Page()) hands.Click(page->Get<Control>(id::advancedButton));
  }

  // The old one's memory goes.
  void Replace() {
    PictureShape shape;
    shape.width = choices_.OneOf(lengths);
    shape.height = choices_.OneOf(lengths);
    const int unlike = choices_.Next();
    if ((unlike & 1) != 0) shape.bitCount = choices_.OneOf(depths);
    if ((unlike & 2) != 0) shape.compression = choices_.Next();
    if ((unlike & 4) != 0) shape.pixelsPerMetreX = choices_.OneOf(densities);
    if ((unlike & 8) != 0) shape.pixelsPerMetreY = choices_.OneOf(densities);
    if ((unlike & 16) != 0)
      shape.stride = (unlike & 32) != 0 ? choices_.Next() : static_cast<std::uint32_t>(choices_.OneOf(lengths));
    constexpr std::int64_t largest = 8192;
    const auto isLarge = [](std::int64_t length) { return length < 0 || length > 64; };
    if ((unlike & 64) != 0 || isLarge(shape.width) || isLarge(shape.height) || shape.stride > largest)
      shape.imageSize = choices_.Next() % 32 * 256 + choices_.Next();
    auto fresh = std::make_unique<HostPicture>(shape);
    fresh->Lend(dib_);
    picture_ = std::move(fresh);
    const int missing = (unlike & 128) != 0 ? choices_.Next() : 0;
    if ((missing & 1) != 0) dib_.header = nullptr;
    if ((missing & 2) != 0) dib_.sourcePixels = nullptr;
    if ((missing & 4) != 0) dib_.displayPixels = nullptr;
    if ((missing & 8) != 0) dib_.savedPixels = nullptr;
    dib_.kind = static_cast<std::uint32_t>(missing >> 4 & 3);
    if ((missing & 64) != 0) dib_.gammaRed = dib_.gammaGreen = dib_.gammaBlue = choices_.OneOf(gammas);
    if ((missing & 128) != 0) dib_.brightness = dib_.contrast = choices_.OneOf(values);
  }

  void Act() {
    Dialog* page = panel_.Page();
    Dialog* adjustments = panel_.Find(panel_.Find(dialog::gamma) != nullptr ? dialog::gamma : dialog::advanced);
    switch (choices_.Below(8)) {
      case 0:
        return Replace();
      case 1:
        replaceAt_ = choices_.Next() % 4;
        [[fallthrough]];
      case 2:
        panel_.Open();
        return;
      case 3:
        return choices_.Bend(*panel_.host.record);
      case 4:
        if (page != nullptr) panel_.Report(*page);
        return;
      case 5:
        return panel_.ActAnywhere();
      default:
        if (adjustments != nullptr) return panel_.ActAt(*adjustments, Panel::Hands::person);
        if (page != nullptr) panel_.ActAt(*page, Panel::Hands::person);
    }
  }

  CDib dib_;
  std::unique_ptr<HostPicture> picture_;
  Panel panel_;
  Choices& choices_ = panel_.choices;
  int replaceAt_ = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Run({data, size}).Go();
  return 0;
}

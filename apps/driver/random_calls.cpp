#include "apps/driver/random_calls.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "apps/driver/assembly.h"
#include "apps/driver/session_folder.h"
#include "apps/driver/wild_hands.h"
#include "apps/driver/wild_values.h"
#include "apps/driver/wild_world.h"
#include "host/module.h"
#include "profile/config_items.h"
#include "resources/ids.h"
#include "set32/messages.h"
#include "set32/pointer_word.h"
#include "set32/ui_fix_setting.h"

namespace set32 {

namespace {

constexpr Size hostSize{640, 480};
constexpr int mostActs = 300;
constexpr int deepest = 5;

AssemblyOptions In(const std::string& folder) {
  AssemblyOptions options;
  options.folder = folder;
  options.quickFiles = true;
  return options;
}

// What one call passes; it lives as long as the call.
struct Arguments {
  DeviceLimits limits{7, 0x7FFE, 4800, 75};
  DeviceCaps caps{};
  PanelRect place{0, 0, 300, 430};
};

class Life : private HostWindowHandler {
 public:
  Life(std::uint32_t seed, CallFigures& figures) : dice_(seed), figures_(figures) {
    Platform& platform = outside_->ThePlatform();
    InstallPlatform(&platform);
    outside_->Watch().SetOpenedHook([this](Dialog& dialog) { OnOpened(dialog); });
    outside_->Watch().SetClosedHook([this](Dialog&, int) { ActInside(6); });
    outside_->TheBoxes().SetAnswerer([this](const ShownBox& box) {
      ActInside(2);
      static constexpr BoxAnswer answers[] = {BoxAnswer::ok, BoxAnswer::yes, BoxAnswer::no};
      return dice_.OneIn(2) ? FirstAnswer(box.style) : dice_.OneOf(answers);
    });
  }
  ~Life() override {
    EndHost();
    DropModule();
    outside_->Watch().SetOpenedHook({});
    outside_->Watch().SetClosedHook({});
  }
  Life(const Life&) = delete;
  Life& operator=(const Life&) = delete;

  std::string Play() {
    Call();
    while (acts_ < mostActs && fault_.empty()) {
      if (dice_.OneIn(60)) Restart();
      if (records_.empty()) Call();
      Act();
      if (dice_.OneIn(16)) outside_->TheInput().Pump();  // painting takes more time than all else
    }
    acts_ = mostActs;
    EndHost();
    CheckEnd();
    if (fault_.empty()) fault_ = FaultInProfile();
    if (fault_.empty()) fault_ = FaultInPlainLife();
    return fault_;
  }

 private:
  // --- the host's windows and records

  WindowHandle HostWindow(WindowHandle& window) {
    if (window == 0) window = outside_->TheInput().MakeHostWindow(hostSize, *this);
    return window;
  }

  WindowHandle AnyWindow(WindowHandle& own) {
    switch (dice_.Below(20)) {
      case 0:
        return 0;
      case 1:
        return gone_;
      case 2: {
        const auto standing = outside_->Watch().Standing();
        return standing.empty() ? 0 : dice_.OneOf(standing)->Handle();
      }
      default:
        return HostWindow(own);
    }
  }

  void End(WindowHandle& window) {
    if (window == 0) return;
    const WindowHandle ending = std::exchange(window, 0);
    ++ending_;
    outside_->TheInput().DestroyHostWindow(ending);
    --ending_;
    gone_ = ending;
  }

  // The windows go, with the panel in them, and then all that it was given: not while one of them is still on its
  // way, nor when others came up meanwhile.
  void EndHost() {
    End(parent_);
    End(other_);
    End(window_);
    if (ending_ != 0 || parent_ != 0 || other_ != 0 || window_ != 0) return;
    records_.clear();
    pictures_.clear();
  }

  ScanSettings* NewRecord() {
    records_.push_back(std::make_unique<ScanSettings>(MakeSettings(outside_->TheSystem(), {})));
    if (dice_.OneIn(2)) Bend(*records_.back(), dice_);
    return records_.back().get();
  }

  CDib* NewPicture() {
    if (dice_.OneIn(3)) return nullptr;
    if (pictures_.empty() || dice_.OneIn(3)) pictures_.push_back(std::make_unique<WildPicture>(dice_));
    return &pictures_.back()->Dib();
  }

  void Call() {
    const auto given = std::make_unique<Arguments>();
    given->caps.words[DeviceCaps::restrictedMaxDpiWord] = 600;
    given->caps.words[DeviceCaps::sourceCapsWord] = source_caps::feeder | source_caps::transparency;
    if (dice_.OneIn(2)) Bend(given->limits, dice_);
    if (dice_.OneIn(2)) Bend(given->caps, dice_);
    if (dice_.OneIn(3)) Bend(given->place, dice_);
    ScanSettings* const record = dice_.OneIn(20) ? nullptr : NewRecord();
    static constexpr std::uint32_t bits[] = {0, 24, 36, 42, 48, 0xFFFFFFFF};
    ++figures_.calls;
    const WindowHandle parent = AnyWindow(dice_.OneIn(3) ? other_ : parent_);
    const WindowHandle page =
        uiFixSetting(parent, AnyWindow(window_), dice_.OneIn(6) ? nullptr : &given->limits, record, NewPicture(),
                     static_cast<std::uint8_t>(dice_.Below(3)), dice_.Next(), dice_.Next(), dice_.OneOf(bits),
                     dice_.OneIn(20) ? nullptr : &given->place, dice_.OneIn(4) ? nullptr : &given->caps);
    if (page == 0) return;
    ++figures_.openings;
    page_ = page;
  }

  // --- what the host hears, and where the panel waits

  MessageResult OnHostMessage(std::uint32_t message, WParam, LParam lParam) override {
    ++figures_.messages;
    LookAt(message, lParam);
    ActInside(8);
    return dice_.Below(2);
  }
  void OnRepaintAsked() override { ActInside(30); }

  // Reads all that a message carries.
  void LookAt(std::uint32_t message, LParam lParam) {
    switch (message) {
      case to_host::areaChanged:
      case to_host::settingsChanged:
      case to_host::customSizeTaken:
      case to_host::autoCropChanged: {
        const auto* const record = FromParameter<ScanSettings>(lParam);
        if (std::none_of(records_.begin(), records_.end(), [&](auto& own) { return own.get() == record; })) {
          fault_ = "a message carried another record than one of the host's";
        }
        return;
      }
      case to_host::frameTabChanged:
        seen_ += *FromParameter<std::uint32_t>(lParam);
        return;
      case to_host::deviceSelected:
        seen_ += static_cast<std::uint32_t>(std::string_view(FromParameter<char>(lParam)).size());
        return;
      default:
        return;
    }
  }

  void OnOpened(Dialog& dialog) {
    const WindowHandle window = dialog.Handle();
    for (int left = dice_.Below(5); left > 0 && depth_ < deepest && acts_ < mostActs; --left) {
      const auto standing = outside_->Watch().Standing();
      const auto found =
          std::find_if(standing.begin(), standing.end(), [=](const Dialog* one) { return one->Handle() == window; });
      if (found == standing.end()) return;
      ++depth_;
      if (dice_.OneIn(4))
        Act();
      else
        CountedAct([&] { hands_.ActAt(**found); });
      --depth_;
    }
  }

  void ActInside(int oneIn) {
    if (depth_ >= deepest || acts_ >= mostActs || !dice_.OneIn(oneIn)) return;
    Act();
  }

  // --- what anybody may do

  template <typename Do>
  void CountedAct(Do act) {
    ++acts_;
    ++figures_.acts;
    ++depth_;
    act();
    --depth_;
  }

  void Act() {
    CountedAct([this] { ActAnyhow(); });
  }

  void ActAnyhow() {
    switch (dice_.Below(40)) {
      case 0:
      case 1:
        return Call();
      case 2:
      case 3:
      case 4:
      case 5:
        return Report();
      case 6:
        return Tell();
      case 7:
        return End(dice_.OneIn(2) ? parent_ : dice_.OneIn(2) ? window_ : other_);
      case 8:
        return dice_.OneIn(2) ? EndHost() : ClosePage();
      case 9:
      case 10:
        return world_.ChooseFace();
      case 11:
        return world_.WriteFiles();
      case 12:
        if (!records_.empty()) Bend(*records_.back(), dice_);  // the host may write at any time
        return;
      case 13:
        if (!pictures_.empty()) pictures_.back()->Change(dice_);
        return;
      case 14:
        return world_.ChangeTheRest();
      case 15:
        if (uiIsSettingOpen() > 1) fault_ = "uiIsSettingOpen says neither 0 nor 1";
        return;
      default:
        return hands_.Act();
    }
  }

  void Report() {
    const auto report = std::make_unique<ScanSettings>(records_.empty() ? ScanSettings{} : *records_.back());
    Bend(*report, dice_);
    report->frameCommand = 0;
    if (frame_.Get() != nullptr && dice_.OneIn(2)) {
      *frame_.Get() = {dice_.Next() % 9, dice_.Next() % 6};
      if (dice_.OneIn(4)) Bend(*frame_.Get(), dice_);
      report->frameCommand = frame_.Word();
    }
    const bool passesOwn = !records_.empty() && records_.back()->frameCommand == 0 && dice_.OneIn(3);
    const ScanSettings* const sent = dice_.OneIn(12) ? nullptr : passesOwn ? records_.back().get() : report.get();
    const WParam kind = dice_.OneIn(8) ? static_cast<WParam>(dice_.Next()) : static_cast<WParam>(dice_.Below(5));
    SendPage(to_panel::frameReport, kind, reinterpret_cast<LParam>(sent));
  }

  // Any other message; what carries no pointer may carry anything.
  void Tell() {
    static constexpr std::uint32_t messages[] = {
        to_panel::autoCropOff, to_panel::deviceQuestion, to_panel::askAddress, 0x400, 0x404, 0x4FF};
    SendPage(dice_.OneOf(messages), static_cast<WParam>(dice_.Next()), static_cast<LParam>(dice_.Next()));
  }

  void SendPage(std::uint32_t message, WParam wParam, LParam lParam) {
    outside_->ThePlatform().windows.Send(page_, message, wParam, lParam);
  }

  void ClosePage() {
    for (Dialog* dialog : outside_->Watch().Standing()) {
      if (dialog->Handle() == page_) return outside_->TheInput().SendClose(*dialog);
    }
  }

  // Nobody else runs meanwhile.
  void DropModule() {
    const int depth = std::exchange(depth_, deepest);
    InstallPlatform(nullptr);
    depth_ = depth;
  }

  // The module is dropped under standing windows and comes anew with the next call; only where nothing of it runs.
  void Restart() {
    DropModule();
    if (dice_.OneIn(2)) hands_.Act();
    EndHost();
    page_ = 0;
    InstallPlatform(&outside_->ThePlatform());
  }

  // --- what must hold

  void CheckEnd() {
    if (!fault_.empty()) return;
    if (!outside_->Watch().Standing().empty()) fault_ = "a dialog outlived the host's windows";
    if (uiIsSettingOpen() != 0) fault_ = "uiIsSettingOpen says 1 without a window";
  }

  // What nobody else wrote is whole.
  std::string FaultInProfile() {
    if (world_.IsProfileForeign()) return {};
    ConfigEntries entries(outside_->ThePlatform().profiles, world_.TheFiles().PathOf(ModuleFile::profile));
    for (ConfigEntry entry; entries.Next(entry);) {
      ScanConfigItem item{};
      if (CopyStoredItem(entry, item) != sizeof item) return "row " + std::string(entry.name) + " isn't whole";
    }
    return {};
  }

  // The module comes anew on what the others have left, with a host that does nothing odd.
  std::string FaultInPlainLife() {
    DropModule();
    InstallPlatform(&outside_->ThePlatform());
    records_.push_back(std::make_unique<ScanSettings>(MakeSettings(outside_->TheSystem(), {})));
    const Arguments given;
    HostWindow(window_);
    const WindowHandle page =
        uiFixSetting(window_, window_, nullptr, records_.back().get(), nullptr, 0, 0, 128, 36, &given.place, nullptr);
    bool isWhole = false;
    for (const Dialog* dialog : outside_->Watch().Standing()) {
      isWhole = isWhole || (dialog->Handle() == page && dialog->Get<Combo>(id::modeCombo).Count() > 0);
    }
    EndHost();
    return isWhole ? "" : "the next ordinary call gave no whole panel";
  }

  SessionFolder folder_;
  std::unique_ptr<Assembly> outside_ = Assemble(In(folder_.Path()));
  Dice dice_;
  WildHands hands_{outside_->Watch(), outside_->TheInput(), dice_};
  WildWorld world_{*outside_, dice_};
  CallFigures& figures_;
  std::vector<std::unique_ptr<ScanSettings>> records_;  // all that a panel may still be bound to
  std::vector<std::unique_ptr<WildPicture>> pictures_;
  LowMemory<FrameCommand> frame_;
  WindowHandle parent_ = 0, other_ = 0, window_ = 0;  // the host's: two for the panel, and one that hears
  WindowHandle gone_ = 0;
  WindowHandle page_ = 0;
  int ending_ = 0;  // host's windows that are on their way
  int acts_ = 0;
  int depth_ = 0;
  std::uint32_t seen_ = 0;
  std::string fault_;
};

}  // namespace

std::string PlayRandomCalls(std::uint32_t seed, CallFigures& figures) {
  ++figures.lives;
  return Life(seed, figures).Play();
}

}  // namespace set32

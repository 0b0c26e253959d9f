// A host as data sources are: it owns the record, the preview and the windows, calls the panel's two functions and
// hears its messages.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "apps/driver/preview_picture.h"
#include "apps/stage/input.h"
#include "apps/stage/window_watch.h"
#include "platform/platform.h"
#include "set32/host_records.h"
#include "set32/pointer_word.h"

namespace set32 {

// What the host passes beside its record and its preview.
struct HostArguments {
  std::optional<DeviceLimits> limits = DeviceLimits{7, 0x7FFE, 4800, 75};
  std::optional<DeviceCaps> caps;
  PanelRect rect{0, 0, 300, 430};
  std::uint8_t jpegModes = 0;
  std::uint32_t bwThreshold = 128;
  std::uint32_t outputBits = 36;

  HostArguments();
};

class FakeHost : private HostWindowHandler {
 public:
  using Hear = std::function<void(const std::string& line)>;

  // `hear` gets each line about what reaches the host, as it comes: "host 0x404 0 4", "repaint".
  FakeHost(Platform& platform, const WindowWatch& watch, Input& input, Hear hear);
  ~FakeHost() override;
  FakeHost(const FakeHost&) = delete;
  FakeHost& operator=(const FakeHost&) = delete;

  // Called inside each message that the host's window hears, after its line; the panel waits meanwhile.
  void SetInside(std::function<void(std::uint32_t message)> inside) { inside_ = std::move(inside); }

  // The record that the host holds now; earlier ones stay where they are, since a page may still be bound to one.
  ScanSettings& Settings() { return records_.back(); }
  const ScanSettings& Settings() const { return records_.back(); }
  // The next opening passes a copy of the record, at another address.
  void TakeNewRecord() { takesNewRecord_ = true; }
  HostArguments& Arguments() { return arguments_; }
  PreviewPicture& Preview() { return preview_; }

  // Writes a field of the record by its name; a pointer written so is never followed. Throws NotPossible.
  void SetField(std::string_view name, std::string_view value);

  // The host's answer to 0x403 with this wParam; 1 unless told.
  void SetAnswer(WParam wParam, MessageResult result) { answers_[wParam] = result; }
  // Whether 0x405 lays the unit into the record.
  void SetStoresUnits(bool stores) { storesUnits_ = stores; }

  // Calls uiFixSetting. Result: whether a page stands.
  bool Open();
  // Ends the panel as hosts do: a close message to the inline page, the end of the parent window on the sheet face,
  // which also can come while the first page is still being opened. Of two faces it ends the one that was opened
  // last. Throws NotPossible without a page.
  void Close();
  // Enables or disables the page's window. Throws NotPossible without a page.
  void EnablePage(bool enabled);
  bool IsSettingOpen() const;

  // 0x403 with a copy of the record, in which `change` may alter fields.
  MessageResult Report(WParam wParam, const std::function<void(ScanSettings&)>& change,
                       std::optional<FrameCommand> frame);
  MessageResult Send(std::uint32_t message, WParam wParam, LParam lParam);

  // The window that takes messages, 0 when none stands.
  WindowHandle Page() const;
  bool IsPageInline() const { return Page() != 0 && page_ == inlinePage_; }
  // Ends the windows and forgets the page.
  void EndWindows();
  // The same with all that the host's process knows of the module, which must have been dropped before.
  void EndProcess();

  // The "host" lines since the last call of ForgetHeard.
  const std::vector<std::string>& Heard() const { return heard_; }
  void ForgetHeard() { heard_.clear(); }

  // Whether every record that came was the host's own, at its address (a check of scenarios and random walks).
  bool SawForeignRecord() const { return sawForeignRecord_; }

 private:
  // Hears nothing: the panel's parent isn't the window that it was told to send to.
  class ParentWindow : public HostWindowHandler {
   public:
    MessageResult OnHostMessage(std::uint32_t, WParam, LParam) override { return 0; }
    void OnRepaintAsked() override {}
  };

  MessageResult OnHostMessage(std::uint32_t message, WParam wParam, LParam lParam) override;
  void OnRepaintAsked() override;
  std::string Argument(std::uint32_t message, LParam lParam);
  std::string Record(std::uint32_t message, const ScanSettings& settings) const;
  bool IsOwn(const ScanSettings* record) const;
  bool SheetStands() const;
  WindowHandle RequirePage() const;

  Platform& platform_;
  const WindowWatch& watch_;
  Input& input_;
  Hear hear_;
  std::function<void(std::uint32_t)> inside_;
  std::deque<ScanSettings> records_;  // each keeps its address
  bool takesNewRecord_ = false;
  HostArguments arguments_;
  PreviewPicture preview_;
  ParentWindow parentHandler_;
  WindowHandle hostWindow_ = 0;
  WindowHandle parentWindow_ = 0;
  WindowHandle page_ = 0;        // as the last opening gave it
  WindowHandle inlinePage_ = 0;  // the last one that was on the inline face
  int openings_ = 0;             // calls of uiFixSetting that are under way
  bool moduleLoaded_ = false;
  std::map<WParam, MessageResult> answers_;
  bool storesUnits_ = false;
  LowMemory<FrameCommand> frame_;
  std::uint32_t ownFrameWord_ = 0;  // what the host itself wrote into frameCommand
  std::vector<std::string> heard_;
  bool sawForeignRecord_ = false;
};

}  // namespace set32

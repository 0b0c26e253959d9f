#include "apps/driver/fake_host.h"

#include <algorithm>

#include "apps/driver/not_possible.h"
#include "apps/driver/script_text.h"
#include "apps/driver/settings_fields.h"
#include "profile/config_items.h"
#include "resources/ids.h"
#include "set32/messages.h"
#include "set32/pointer_word.h"
#include "set32/ui_fix_setting.h"

namespace set32 {

namespace {

constexpr Size hostSize{640, 480};
constexpr Size blankPreview{850, 1169};
constexpr int previewDpi = 100;

// The panel's words have 32 bits, also where a message carries more.
template <typename Param>
std::string SignedWord(Param param) {
  return std::to_string(static_cast<std::int32_t>(param));
}

bool CarriesRecord(std::uint32_t message) {
  switch (message) {
    case to_host::areaChanged:
    case to_host::settingsChanged:
    case to_host::customSizeTaken:
    case to_host::autoCropChanged:
      return true;
    default:
      return false;
  }
}

}  // namespace

HostArguments::HostArguments() : caps(DeviceCaps{}) {
  caps->words[DeviceCaps::restrictedMaxDpiWord] = 600;
  caps->words[DeviceCaps::sourceCapsWord] = source_caps::feeder | source_caps::transparency;
}

FakeHost::FakeHost(Platform& platform, const WindowWatch& watch, Input& input, Hear hear)
    : platform_(platform),
      watch_(watch),
      input_(input),
      hear_(std::move(hear)),
      records_{MakeSettings(platform.system, {})} {
  preview_.MakeBlank(blankPreview, previewDpi);
}

FakeHost::~FakeHost() {
  EndWindows();
}

void FakeHost::SetField(std::string_view name, std::string_view value) {
  set32::SetField(Settings(), name, value);
  ownFrameWord_ = Settings().frameCommand;
}

bool FakeHost::Open() {
  if (hostWindow_ == 0) hostWindow_ = input_.MakeHostWindow(hostSize, *this);
  if (parentWindow_ == 0) parentWindow_ = input_.MakeHostWindow(hostSize, parentHandler_);
  if (std::exchange(takesNewRecord_, false)) records_.push_back(ScanSettings(Settings()));
  const HostArguments given = arguments_;  // inside a message the host may change them
  const bool inlineStood = IsSettingOpen();
  moduleLoaded_ = true;
  ++openings_;
  const WindowHandle page = uiFixSetting(parentWindow_, hostWindow_, given.limits ? &*given.limits : nullptr,
                                         &Settings(), preview_.Dib(), given.jpegModes, 0, given.bwThreshold,
                                         given.outputBits, &given.rect, given.caps ? &*given.caps : nullptr);
  --openings_;
  page_ = page;
  // The flag tells of the inline page alone; where it was set before, this may be the sheet, opened beside.
  if (IsSettingOpen() && !(inlineStood && SheetStands())) inlinePage_ = page;
  input_.Pump();
  return page_ != 0;
}

void FakeHost::Close() {
  const WindowHandle page = openings_ > 0 ? Page() : RequirePage();
  if (IsPageInline()) {
    const auto standing = watch_.Standing();
    const auto found =
        std::find_if(standing.begin(), standing.end(), [=](auto* dialog) { return dialog->Handle() == page; });
    if (found != standing.end()) input_.SendClose(**found);
  } else {
    input_.DestroyHostWindow(parentWindow_);
    parentWindow_ = 0;
  }
  input_.Pump();
}

void FakeHost::EnablePage(bool enabled) {
  platform_.windows.Enable(RequirePage(), enabled);
  input_.Pump();
}

// To ask would load the module, which reads its file names then.
bool FakeHost::IsSettingOpen() const {
  return moduleLoaded_ && uiIsSettingOpen() != 0;
}

bool FakeHost::SheetStands() const {
  const auto standing = watch_.Standing();
  return std::any_of(standing.begin(), standing.end(),
                     [](auto* dialog) { return dialog->TemplateId() == dialog::sheet && dialog->IsAlive(); });
}

WindowHandle FakeHost::Page() const {
  return platform_.windows.IsWindow(page_) ? page_ : 0;
}

WindowHandle FakeHost::RequirePage() const {
  const WindowHandle page = Page();
  if (page == 0) throw NotPossible("no page stands");
  return page;
}

MessageResult FakeHost::Report(WParam wParam, const std::function<void(ScanSettings&)>& change,
                               std::optional<FrameCommand> frame) {
  const WindowHandle page = RequirePage();
  ScanSettings report = Settings();
  if (change) change(report);
  report.frameCommand = 0;
  if (frame) {
    if (frame_.Get() == nullptr) throw NotPossible("no memory below 4 GB");
    *frame_.Get() = *frame;
    report.frameCommand = frame_.Word();
  }
  const MessageResult result =
      platform_.windows.Send(page, to_panel::frameReport, wParam, reinterpret_cast<LParam>(&report));
  input_.Pump();
  return result;
}

MessageResult FakeHost::Send(std::uint32_t message, WParam wParam, LParam lParam) {
  const MessageResult result = platform_.windows.Send(RequirePage(), message, wParam, lParam);
  input_.Pump();
  return result;
}

void FakeHost::EndProcess() {
  EndWindows();
  moduleLoaded_ = false;
}

void FakeHost::EndWindows() {
  page_ = inlinePage_ = 0;
  if (parentWindow_ != 0) input_.DestroyHostWindow(parentWindow_);
  if (hostWindow_ != 0) input_.DestroyHostWindow(hostWindow_);
  parentWindow_ = hostWindow_ = 0;
}

MessageResult FakeHost::OnHostMessage(std::uint32_t message, WParam wParam, LParam lParam) {
  const std::string line =
      "host " + Hexadecimal(message) + ' ' + SignedWord(wParam) + ' ' + Argument(message, lParam);
  heard_.push_back(line);
  hear_(line);
  if (message == to_host::unitChosen && storesUnits_) Settings().units = static_cast<std::uint32_t>(wParam);
  if (inside_) inside_(message);
  if (message != to_host::settingsChanged) return 0;
  const auto answer = answers_.find(wParam);
  return answer != answers_.end() ? answer->second : 1;
}

void FakeHost::OnRepaintAsked() {
  hear_("repaint");
}

std::string FakeHost::Argument(std::uint32_t message, LParam lParam) {
  if (lParam == 0) return "0";
  if (CarriesRecord(message)) {
    const auto* record = FromParameter<ScanSettings>(lParam);
    if (!IsOwn(record)) sawForeignRecord_ = true;
    return Record(message, *record);
  }
  if (message == to_host::frameTabChanged) {
    return '&' + std::to_string(*FromParameter<std::uint32_t>(lParam));
  }
  if (message == to_host::deviceSelected) return Quote(FromParameter<char>(lParam));
  return SignedWord(lParam);
}

// Where both faces stand, one may keep an earlier record.
bool FakeHost::IsOwn(const ScanSettings* record) const {
  if (record == &Settings()) return true;
  return SheetStands() && platform_.windows.IsWindow(inlinePage_) &&
         std::any_of(records_.begin(), records_.end(), [=](const ScanSettings& own) { return &own == record; });
}

// A frame command travels with 0x403 alone; in any other message the word is a leftover that nobody follows.
std::string FakeHost::Record(std::uint32_t message, const ScanSettings& settings) const {
  const bool travels = message == to_host::settingsChanged && settings.frameCommand != ownFrameWord_;
  if (!travels || settings.frameCommand == 0) return "settings";
  const auto* frame = FromWord<FrameCommand>(settings.frameCommand);
  return "settings frame " + std::to_string(frame->action) + ' ' + std::to_string(frame->index);
}

}  // namespace set32

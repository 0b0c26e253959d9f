// Any bytes as the whole profile: the store reads it, shows it, changes, saves, deletes and closes, and what it
// wasn't asked to touch stays as it was.
//
// The dialog stands for the whole run; a store and its list are made anew for each input. The page's own answer to
// strange records is the business of fuzz_host_record.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "platform/profile_text.h"
#include "profile/config_store.h"
#include "profile/hex_text.h"
#include "profile/profile_keys.h"
#include "resources/ids.h"
#include "tests/support/memory_files.h"
#include "tests/support/memory_world.h"

namespace {

using namespace set32;

void Require(bool holds) {
  if (!holds) std::abort();
}

// Values by the names that the file tells apart.
using Contents = std::map<std::string, std::string>;

constexpr std::string_view endsOfName("\n\0", 2);  // no edit holds a NUL

constexpr ControlTemplate controls[] = {{id::configList, ControlKind::list, "", 7, 45, 155, 80},
                                        {id::saveButton, ControlKind::button, "", 69, 129, 45, 12},
                                        {id::deleteButton, ControlKind::button, "", 117, 129, 46, 12}};
constexpr DialogTemplate source{dialog::general, "", {180, 261}, "", 8, DialogStyle::child, controls};

class Bench : public DialogHandler, public PanelServices, public HostWindowHandler {
 public:
  Bench() : host_(world_.desk.windows), state_(world_.platform) {
    state_.profilePath = MemoryWorld::profilePath;
    dialog_ = world_.desk.windows.Create(source, world_.desk.input.MakeHostWindow({600, 500}, *this), *this);
    dialog_->SetVisible(true);
    world_.desk.windows.SetOpenedHook([this](Dialog& opened) {
      if (!typedName_.empty()) opened.Get<Edit>(id104::nameEdit).SetText(typedName_);
      world_.desk.input.Click(opened.Get<Button>(id::ok));
    });
  }

  void Run(std::string profile) {
    const int acts = profile.empty() ? 0xFF : static_cast<unsigned char>(profile.back());
    typedName_ = profile.substr(0, std::min(profile.find_first_of(endsOfName), std::size_t{40}));
    profile = AsProfile(std::move(profile), acts >> 5);
    files_.content = {{MemoryWorld::profilePath, std::move(profile)}};
    record_ = MakeSettings(world_.system, {});
    CConfigStore store(state_, *this, sheetStoreFace);
    store_ = &store;
    store.Attach(*dialog_);
    store.ClearRows();
    store.WriteFreshProfile();
    source_ = store.LoadLastSettings(record_);
    store.BuildConfigList();
    store.ShowSelectedRow();
    store.HoldSelectedRow();
    store.SetButtons();
    if ((acts & 1) != 0) ChangeRows();
    if ((acts & 2) != 0) Save();
    if ((acts & 4) != 0) Delete();
    if ((acts & 8) != 0) {
      ChangeSource();
      ChangeRows();
    }
    if ((acts & 16) != 0) Close();
    store_ = nullptr;
  }

  void OnEvent(const Event& event) override {
    if (store_ == nullptr || event.controlId != id::configList) return;
    if (event.kind == EventKind::rowChanged) store_->OnRowChanged(event);
    if (event.kind == EventKind::rowClicked) store_->OnRowClicked(event);
  }
  MessageResult OnHostMessage(std::uint32_t, WParam, LParam) override { return 1; }
  void OnRepaintAsked() override {}

  ScanSettings& Settings() override { return record_; }
  HostLink& Host() override { return host_; }
  std::uint32_t PageSource() const override { return source_; }
  std::uint32_t ShownUnits() const override { return 0; }
  void RefreshPanel() override { store_->SetButtons(); }
  void RefreshPreview() override {}
  void BuildResolutionList() override {}
  void AutoSaveConfig() override { store_->AutoSaveConfig(); }
  void RemoveAllFrames() override {}
  void RepeatAutoCrop(Saving) override {}

 private:
  // The bytes alone, as lines of the section, or as lines before or behind those of a small profile.
  std::string AsProfile(std::string bytes, int how) {
    constexpr std::string_view header = "[Config Items]\n";
    if (how == 1) return bytes.insert(0, header);
    if (how < 2 || how > 3) return bytes;
    return how == 2 ? std::string(small_).insert(header.size(), bytes + '\n') : small_ + bytes;
  }

  // One row that never changes, one that takes changes up, one that can be deleted.
  std::string SmallProfile() {
    std::string text = "[Config Items]\n";
    for (std::uint8_t row = 0; row < 3; ++row) {
      ScanConfigItem item{MakeSettings(world_.system, {}), row > 0, row > 1, {}};
      text += "row" + std::to_string(row) + '=' +
              EncodeHex({reinterpret_cast<const std::uint8_t*>(&item), sizeof(item)}) + '\n';
    }
    return text;
  }

  List& Rows() { return dialog_->Get<List>(id::configList); }
  // Straight from the bytes, since this is asked for all the time.
  Contents Stored() const {
    Contents stored;
    profile_text::SectionLines lines(files_.content.at(MemoryWorld::profilePath), profile_key::configItems);
    for (profile_text::SectionLines::Line line; lines.Next(line);) {
      if (!line.hasValue || line.name.empty()) continue;
      std::string name(line.name);
      std::ranges::transform(name, name.begin(),
                             [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
      stored.emplace(std::move(name), profile_text::Unquote(line.value));
    }
    return stored;
  }

  static bool IsGuarded(const std::string& value) {
    ScanConfigItem item{};
    const std::size_t bytes = DecodeHex(value, {reinterpret_cast<std::uint8_t*>(&item), sizeof(item)}, 0);
    return bytes < offsetof(ScanConfigItem, reserved) || item.editable == 0;
  }

  // At most one name came, went or has another value; nothing is written over what can't be read or changed.
  static void RequireOneChange(const Contents& before, const Contents& after) {
    int changes = 0;
    for (const auto& [name, value] : before) {
      const auto found = after.find(name);
      if (found == after.end() || found->second != value) ++changes;
      if (found != after.end() && found->second != value) Require(!IsGuarded(value));
    }
    for (const auto& [name, value] : after) {
      if (!before.contains(name)) ++changes;
    }
    Require(changes <= 1);
  }

  void ChangeRows() {
    constexpr int most = 3;
    const std::size_t entries = ReadConfigEntries(world_.profiles, MemoryWorld::profilePath).size();
    Require(Rows().Count() <= CConfigStore::mostRows);
    Require(static_cast<std::size_t>(Rows().Count()) <= std::max<std::size_t>(entries, 1));
    Contents before = Stored();
    for (int row = 0; row < std::min(Rows().Count(), most); ++row) {
      Input& hands = world_.desk.input;
      row % 2 == 0 ? hands.ClickRow(Rows(), row) : hands.ArrowTo(Rows(), row);
      ++record_.jpegQuality;
      store_->AutoSaveConfig();
      Contents after = Stored();
      Require(after.size() == before.size());
      RequireOneChange(before, after);
      before = std::move(after);
    }
  }

  void Save() {
    const Contents before = Stored();
    store_->SaveConfigAs();
    RequireOneChange(before, Stored());
  }

  void Delete() {
    if (!dialog_->Get<Button>(id::deleteButton).IsEnabled()) return;
    const Contents before = Stored();
    store_->DeleteConfig();
    RequireOneChange(before, Stored());
  }

  void ChangeSource() {
    source_ = (source_ + 1) % 4;
    store_->suppressAutoSave = true;
    store_->ChangeSource();
    store_->SelectConfigRow(3);
    store_->suppressAutoSave = false;
  }

  // What the end of the page wrote reads back, and touches no configuration.
  void Close() {
    const Contents before = Stored();
    record_.highBitDepth = 1;
    ScanSettings written = record_;
    store_->Close(record_, source_);
    Require(Stored() == before);
    Require(record_.highBitDepth == 0);
    CConfigStore next(state_, *this, sheetStoreFace);
    next.Attach(*dialog_);
    ScanSettings last{};
    next.LoadLastSettings(last);
    if (written.paperSource == paper_source::feeder) written.autoCrop = 0;
    Require(std::ranges::equal(std::as_bytes(std::span(&last, 1)), std::as_bytes(std::span(&written, 1))));
  }

  MemoryFiles files_;
  MemoryWorld world_{files_};
  const std::string small_ = SmallProfile();
  HostLink host_;
  ModuleState state_;
  std::unique_ptr<Dialog> dialog_;
  ScanSettings record_{};
  std::uint32_t source_ = 0;
  std::string typedName_;
  CConfigStore* store_ = nullptr;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Bench bench;
  bench.Run(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}

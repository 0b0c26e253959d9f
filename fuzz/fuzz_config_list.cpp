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
#include "profile/save_config_dialog.h"
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

class Bench : public DialogHandler, public HostWindowHandler {
 public:
  Bench() : state_(world_.platform) {
    state_.profilePath = MemoryWorld::profilePath;
    dialog_ = world_.screen.windows.Create(source, world_.screen.input.MakeHostWindow({600, 500}, *this), *this);
    dialog_->SetVisible(true);
  }

  void Run(std::string profile) {
    const int acts = profile.empty() ? 0xFF : static_cast<unsigned char>(profile.back());
    typedName_ = profile.substr(0, std::min(profile.find_first_of(endsOfName), std::size_t{40}));
    profile = AsProfile(std::move(profile), acts >> 5);
    files_.content = {{MemoryWorld::profilePath, std::move(profile)}};
    record_ = MakeSettings(world_.system, {});
    CConfigStore store(state_);
    store_ = &store;
    store.Attach(*dialog_);
    store.WriteFreshProfile();
    store.ReadLastSettings(record_);
    source_ = record_.paperSource;
    store.ReadSelectedRow(source_);
    store.BuildConfigList(source_);
    store.SelectRow(store.selectedRow);
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
    if (store_ == nullptr || event.kind != EventKind::rowChanged || !event.after.selected) return;
    store_->selectedRow = event.row;
    store_->TakeRow(event.row, record_);
    store_->SetButtons();
  }
  MessageResult OnHostMessage(std::uint32_t, WParam, LParam) override { return 1; }
  void OnRepaintAsked() override {}

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
  Contents Lines() const {
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
    std::size_t entries = 0;
    ConfigEntries stored(world_.profiles, MemoryWorld::profilePath);
    for (ConfigEntry entry; stored.Next(entry);) ++entries;
    Require(Rows().Count() <= CConfigStore::mostRows);
    Require(static_cast<std::size_t>(Rows().Count()) <= std::max<std::size_t>(entries, 1));
    Contents before = Lines();
    for (int row = 0; row < std::min(Rows().Count(), most); ++row) {
      Input& hands = world_.screen.input;
      row % 2 == 0 ? hands.ClickRow(Rows(), row) : hands.ArrowTo(Rows(), row);
      ++record_.jpegQuality;
      store_->SaveChange(record_, source_);
      Contents after = Lines();
      Require(after.size() == before.size());
      RequireOneChange(before, after);
      before = std::move(after);
    }
  }

  void Save() {
    const Contents before = Lines();
    const NameVerdict verdict = JudgeConfigName(world_.profiles, MemoryWorld::profilePath, typedName_);
    if (verdict == NameVerdict::fresh || verdict == NameVerdict::replaceable) store_->SaveAs(typedName_, record_);
    store_->BuildConfigList(source_);
    RequireOneChange(before, Lines());
  }

  void Delete() {
    if (!dialog_->Get<Button>(id::deleteButton).IsEnabled()) return;
    const Contents before = Lines();
    store_->Remove(store_->RowText(store_->selectedRow));
    store_->BuildConfigList(source_);
    store_->HoldSelectedRow();
    store_->SelectRow(store_->selectedRow);
    RequireOneChange(before, Lines());
  }

  void ChangeSource() {
    source_ = (source_ + 1) % 4;
    store_->BuildConfigList(source_);
    store_->HoldSelectedRow();
    store_->SelectRow(store_->selectedRow);
    store_->TakeRow(store_->selectedRow, record_);
  }

  // What the end of the page wrote reads back, and touches no configuration.
  void Close() {
    const Contents before = Lines();
    store_->WriteLastSettings(record_, source_);
    Require(Lines() == before);
    CConfigStore next(state_);
    ScanSettings last{};
    next.ReadLastSettings(last);
    ScanSettings written = record_;
    written.frameCommand = 0;
    Require(std::ranges::equal(std::as_bytes(std::span(&last, 1)), std::as_bytes(std::span(&written, 1))));
  }

  MemoryFiles files_;
  MemoryWorld world_{files_};
  const std::string small_ = SmallProfile();
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

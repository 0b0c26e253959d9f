#include "apps/acquire/road/acquisition.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace acquire {

namespace data = twain::data;
namespace group = twain::group;
namespace message = twain::message;
namespace result = twain::result;
using data_source::Values;

namespace {

// A handle of global memory that is freed at the end.
class Block {
 public:
  explicit Block(HGLOBAL handle) : handle_(handle) {}
  ~Block() {
    if (handle_ != nullptr) GlobalFree(handle_);
  }
  Block(const Block&) = delete;
  Block& operator=(const Block&) = delete;

  std::vector<std::uint8_t> Bytes() const {
    const auto* bytes = static_cast<const std::uint8_t*>(handle_ == nullptr ? nullptr : GlobalLock(handle_));
    if (bytes == nullptr) return {};
    std::vector<std::uint8_t> copy(bytes, bytes + GlobalSize(handle_));
    GlobalUnlock(handle_);
    return copy;
  }

 private:
  HGLOBAL handle_;
};

HGLOBAL Laid(const std::vector<std::uint8_t>& bytes) {
  const HGLOBAL handle = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  void* memory = handle == nullptr ? nullptr : GlobalLock(handle);
  if (memory == nullptr) return nullptr;
  std::memcpy(memory, bytes.data(), bytes.size());
  GlobalUnlock(handle);
  return handle;
}

twain::Identity Self() {
  twain::Identity self{};
  self.version = {0, 1, 13, 1, "0.1"};
  self.protocolMajor = 2;
  self.protocolMinor = 1;
  self.groups = group::control | group::image;
  std::strncpy(self.manufacturer, "set32", sizeof self.manufacturer - 1);
  std::strncpy(self.family, "set32", sizeof self.family - 1);
  std::strncpy(self.name, "acquire", sizeof self.name - 1);
  return self;
}

}  // namespace

Acquisition::~Acquisition() {
  if (transfers_) {
    twain::PendingTransfers pending{};
    Call(group::control, data::pendingTransfers, message::endTransfer, &pending);
    Call(group::control, data::pendingTransfers, message::reset, &pending);
  }
  if (enabled_) Disable();
  if (sourceStands_) CloseSource();
  if (managerStands_) CallManager(nullptr, group::control, data::parent, message::closeManager, &parent_);
}

std::uint16_t Acquisition::CallManager(twain::Identity* of, std::uint32_t operationGroup, std::uint16_t operationData,
                                       std::uint16_t operation, void* record) {
  return manager_(&self_, of, operationGroup, operationData, operation, record);
}

std::uint16_t Acquisition::Call(std::uint32_t operationGroup, std::uint16_t operationData, std::uint16_t operation,
                                void* record) {
  return CallManager(&source_, operationGroup, operationData, operation, record);
}

std::uint16_t Acquisition::Condition() {
  twain::Status status{};
  Call(group::control, data::status, message::get, &status);
  return status.condition;
}

// The source's own words where it has some.
bool Acquisition::Check(std::uint16_t answer, const char* what) {
  if (answer == result::success || answer == result::checkStatus) return true;
  trouble_ = std::string(what) + " failed";
  if (!sourceStands_) return false;
  twain::StatusText words{};
  if (Call(group::control, data::statusText, message::get, &words) == result::success) {
    const std::vector<std::uint8_t> bytes = Block(words.text).Bytes();
    const std::string text(bytes.begin(), std::find(bytes.begin(), bytes.end(), 0));
    if (!text.empty()) trouble_ += ": " + text;
  }
  trouble_ += " (condition " + std::to_string(Condition()) + ")";
  return false;
}

bool Acquisition::OpenManager(HWND parent) {
  library_ = set32::win32::OwnedModule(LoadLibraryW(L"twain_32.dll"));
  const FARPROC found = library_ ? GetProcAddress(library_.Get(), "DSM_Entry") : nullptr;
  trouble_ = "There is no source manager: twain_32.dll.";
  if (found == nullptr) return false;
  static_assert(sizeof manager_ == sizeof found);
  std::memcpy(&manager_, &found, sizeof manager_);
  self_ = Self();
  parent_ = parent;
  managerStands_ = Check(CallManager(nullptr, group::control, data::parent, message::openManager, &parent_),
                         "The manager's opening");
  return managerStands_;
}

bool Acquisition::OpenSource(const std::string& name) {
  std::uint16_t what = message::getFirst;
  for (;; what = message::getNext) {
    if (CallManager(nullptr, group::control, data::identity, what, &source_) != result::success) {
      trouble_ = "The manager knows no source of the name " + name + ".";
      return false;
    }
    if (name == source_.name) break;
  }
  sourceStands_ = Check(CallManager(nullptr, group::control, data::identity, message::openSource, &source_),
                        "The source's opening");
  return sourceStands_;
}

bool Acquisition::CloseSource() {
  sourceStands_ = enabled_ = transfers_ = false;
  return Check(CallManager(nullptr, group::control, data::identity, message::closeSource, &source_),
               "The source's closing");
}

bool Acquisition::Set(std::uint16_t cap, const Values& values) {
  const HGLOBAL handle = Laid(data_source::Encode(values));
  const Block freed(handle);
  twain::Capability record{cap, values.container, handle};
  return Check(Call(group::control, data::capability, message::set, &record), "A setting");
}

bool Acquisition::Set(std::uint16_t cap, std::uint16_t type, double value) {
  return Set(cap, {twain::container::oneValue, type, {value}});
}

std::optional<Values> Acquisition::Get(std::uint16_t cap, std::uint16_t operation) {
  twain::Capability record{cap, twain::container::dontCare, nullptr};
  if (!Check(Call(group::control, data::capability, operation, &record), "A question")) return {};
  return data_source::Decode(record.containerType, Block(record.container).Bytes());
}

bool Acquisition::Enable(bool shows, bool isModal, std::uint16_t operation) {
  twain::UserInterface wanted{static_cast<std::uint16_t>(shows), static_cast<std::uint16_t>(isModal), parent_};
  enabled_ = Check(Call(group::control, data::userInterface, operation, &wanted), "The start of the scan");
  return enabled_;
}

bool Acquisition::Disable() {
  twain::UserInterface wanted{0, 0, parent_};
  enabled_ = false;
  return Check(Call(group::control, data::userInterface, message::disable, &wanted), "The end of the scan");
}

bool Acquisition::Offer(MSG& system) {
  if (!enabled_) return false;
  twain::Event event{&system, message::null};
  const std::uint16_t answer = Call(group::control, data::event, message::processEvent, &event);
  if (event.message != message::null) told_ = event.message;
  return answer == result::sourceEvent;
}

std::uint16_t Acquisition::Wait(DWORD patience) {
  const ULONGLONG end = patience == INFINITE ? ~0ULL : GetTickCount64() + patience;
  while (told_ == message::null) {
    MSG system{};
    if (!PeekMessageW(&system, nullptr, 0, 0, PM_REMOVE)) {
      const ULONGLONG now = GetTickCount64();
      if (now >= end) break;
      MsgWaitForMultipleObjects(0, nullptr, FALSE, patience == INFINITE ? INFINITE : static_cast<DWORD>(end - now),
                                QS_ALLINPUT);
      continue;
    }
    if (Offer(system)) continue;
    TranslateMessage(&system);
    DispatchMessageW(&system);
  }
  return std::exchange(told_, message::null);
}

std::optional<Bitmap> Acquisition::Transfer() {
  transfers_ = true;
  HGLOBAL bitmap = nullptr;
  const std::uint16_t answer = Call(group::image, data::imageNative, message::get, &bitmap);
  if (answer == result::transferDone) return Block(bitmap).Bytes();
  Check(answer, "An image's transfer");
  return {};
}

int Acquisition::EndTransfer() {
  twain::PendingTransfers pending{};
  if (!Check(Call(group::control, data::pendingTransfers, message::endTransfer, &pending), "A transfer's end"))
    return -1;
  transfers_ = pending.count != 0;
  return pending.count;
}

}  // namespace acquire

#include "apps/data-source/core/data_source.h"

#include <cstring>
#include <new>
#include <utility>

namespace data_source {

namespace condition = twain::condition;
namespace data = twain::data;
namespace group = twain::group;
namespace message = twain::message;
namespace result = twain::result;

// Each operation, and the states in which it has a place.
const DataSource::Triplet DataSource::triplets[] = {
    {group::control, data::identity, message::get, 3, 7, &DataSource::GetIdentity},
    {group::control, data::identity, message::openSource, 3, 3, &DataSource::Open},
    {group::control, data::identity, message::closeSource, 4, 7, &DataSource::Close, false},
    {group::control, data::entryPoint, message::set, 3, 3, &DataSource::TakeEntryPoint},
    {group::control, data::status, message::get, 3, 7, &DataSource::GetStatus},
    {group::control, data::statusText, message::get, 3, 7, &DataSource::GetStatusText},
    {group::control, data::userInterface, message::enable, 4, 4, &DataSource::Enable},
    {group::control, data::userInterface, message::enableForSettings, 4, 4, &DataSource::EnableForSettings},
    {group::control, data::userInterface, message::disable, 5, 5, &DataSource::Disable, false},
    {group::control, data::event, message::processEvent, 5, 7, &DataSource::ProcessEvent},

    {group::control, data::capability, message::get, 4, 7, &DataSource::GetCapability},
    {group::control, data::capability, message::getCurrent, 4, 7, &DataSource::GetCurrentCapability},
    {group::control, data::capability, message::getDefault, 4, 7, &DataSource::GetDefaultCapability},
    {group::control, data::capability, message::set, 4, 4, &DataSource::SetCapability},
    {group::control, data::capability, message::reset, 4, 4, &DataSource::ResetCapability},
    {group::control, data::capability, message::querySupport, 4, 7, &DataSource::QuerySupport},
    {group::image, data::imageLayout, message::get, 4, 7, &DataSource::GetLayout},
    {group::image, data::imageLayout, message::getDefault, 4, 7, &DataSource::GetDefaultLayout},
    {group::image, data::imageLayout, message::set, 4, 4, &DataSource::SetLayout},
    {group::image, data::imageLayout, message::reset, 4, 4, &DataSource::ResetLayout},
    {group::control, data::customData, message::get, 4, 4, &DataSource::GetCustomData},
    {group::control, data::customData, message::set, 4, 4, &DataSource::SetCustomData},
    {group::control, data::transferGroup, message::get, 4, 6, &DataSource::GetTransferGroup},
    {group::control, data::transferGroup, message::set, 4, 6, &DataSource::SetTransferGroup},

    {group::control, data::pendingTransfers, message::get, 4, 7, &DataSource::GetPending},
    {group::control, data::pendingTransfers, message::endTransfer, 6, 7, &DataSource::EndTransfer},
    {group::control, data::pendingTransfers, message::reset, 6, 7, &DataSource::ResetPending},
    {group::control, data::setupMemory, message::get, 4, 6, &DataSource::GetSetupMemory},
    {group::control, data::setupFile, message::get, 4, 6, &DataSource::GetSetupFile},
    {group::control, data::setupFile, message::getDefault, 4, 6, &DataSource::GetDefaultSetupFile},
    {group::control, data::setupFile, message::set, 4, 6, &DataSource::SetSetupFile},
    {group::control, data::setupFile, message::reset, 4, 6, &DataSource::ResetSetupFile},
    {group::image, data::imageInfo, message::get, 6, 7, &DataSource::GetImageInfo},
    {group::image, data::imageNative, message::get, 6, 6, &DataSource::TransferNative},
    {group::image, data::imageMemory, message::get, 6, 7, &DataSource::TransferMemory},
    {group::image, data::imageFile, message::get, 6, 6, &DataSource::TransferFile, false},
};

twain::Identity OwnIdentity() {
  constexpr std::uint16_t englishOfUsa = 13, usa = 1;
  twain::Identity self{};
  self.version = {0, 1, englishOfUsa, usa, "0.1"};
  self.protocolMajor = 2;
  self.protocolMinor = 1;
  self.groups = group::control | group::image | group::source2;
  std::strncpy(self.manufacturer, "set32", sizeof self.manufacturer - 1);
  std::strncpy(self.family, "set32", sizeof self.family - 1);
  std::strncpy(self.name, "set32 data source", sizeof self.name - 1);
  return self;
}

DataSource::DataSource(const Parts& parts) : parts_(parts), self_(OwnIdentity()) {}

std::uint16_t DataSource::Handle(std::uint32_t operationGroup, std::uint16_t operationData,
                                 std::uint16_t operationMessage, void* record) try {
  for (const Triplet& triplet : triplets) {
    if (triplet.group != operationGroup || triplet.data != operationData || triplet.message != operationMessage)
      continue;
    if (state_ < triplet.firstState || state_ > triplet.lastState) return Fail(condition::sequenceError);
    if (triplet.needsRecord && record == nullptr) return Fail(condition::badValue);
    return (this->*triplet.operation)(record);
  }
  return Fail(condition::badProtocol);
} catch (const std::bad_alloc&) {
  return Fail(condition::lowMemory);
}

std::uint16_t DataSource::Fail(std::uint16_t why, std::string text) {
  condition_ = why;
  text_ = std::move(text);
  return result::failure;
}

twain::Handle DataSource::Share(const void* bytes, std::size_t size) {
  const twain::Handle handle = parts_.memory.Allocate(size);
  void* memory = handle == nullptr ? nullptr : parts_.memory.Lock(handle);
  if (memory == nullptr) return nullptr;
  std::memcpy(memory, bytes, size);
  parts_.memory.Unlock(handle);
  return handle;
}

std::uint16_t DataSource::GetIdentity(void* record) {
  auto& identity = *static_cast<twain::Identity*>(record);
  const std::uint32_t id = identity.id;  // the manager's
  identity = OwnIdentity();
  identity.id = id;
  return result::success;
}

std::uint16_t DataSource::Open(void* record) {
  if (!parts_.messenger.Open()) return Fail(condition::lowMemory);
  self_ = *static_cast<twain::Identity*>(record);
  agreed_ = Negotiation();
  file_.clear();
  condition_ = condition::success;
  text_.clear();
  state_ = 4;
  return result::success;
}

std::uint16_t DataSource::Close(void*) {
  EndSession();
  parts_.messenger.Close();
  state_ = 3;
  return result::success;
}

std::uint16_t DataSource::TakeEntryPoint(void* record) {
  const auto& functions = *static_cast<const twain::EntryPoint*>(record);
  if (functions.size < sizeof functions) return Fail(condition::badValue);
  parts_.memory.Borrow(functions);
  return result::success;
}

// A question for the status tells of one failure once.
std::uint16_t DataSource::GetStatus(void* record) {
  *static_cast<twain::Status*>(record) = {std::exchange(condition_, condition::success), 0};
  return result::success;
}

std::uint16_t DataSource::GetStatusText(void* record) {
  auto& answer = *static_cast<twain::StatusText*>(record);
  const std::size_t size = text_.size() + 1;
  answer.text = Share(text_.c_str(), size);
  if (answer.text == nullptr) return Fail(condition::lowMemory);
  answer.size = static_cast<std::uint32_t>(size);
  return result::success;
}

std::uint16_t DataSource::Enable(void* record) {
  return EnableWith(*static_cast<const twain::UserInterface*>(record), false);
}

std::uint16_t DataSource::EnableForSettings(void* record) {
  return EnableWith(*static_cast<const twain::UserInterface*>(record), true);
}

// On a failure the source stays open and not enabled.
std::uint16_t DataSource::EnableWith(const twain::UserInterface& wanted, bool onlySettings) {
  jobs_.clear();
  untold_ = message::null;
  onlySettings_ = onlySettings;
  if (onlySettings || wanted.shows != 0) {
    std::string trouble;
    hasDialog_ = true;
    if (!parts_.dialog.Open({wanted.parent, wanted.modal != 0, onlySettings, agreed_}, trouble)) {
      EndSession();
      return Fail(condition::bummer, trouble);
    }
  } else {
    const std::string trouble = PlanJobs();
    if (!trouble.empty()) return Fail(condition::noMedia, trouble);
    parts_.messenger.DeliverLater(message::transferReady);
  }
  state_ = 5;
  return result::success;
}

std::uint16_t DataSource::Disable(void*) {
  EndSession();
  state_ = 4;
  return result::success;
}

// What stands since the source was enabled.
void DataSource::EndSession() {
  if (std::exchange(hasDialog_, false)) parts_.dialog.Close();
  EndJobs();
  untold_ = message::null;
}

std::uint16_t DataSource::ProcessEvent(void* record) {
  auto& event = *static_cast<twain::Event*>(record);
  event.message = message::null;
  if (untold_ != message::null) {
    event.message = std::exchange(untold_, message::null);
    return result::sourceEvent;
  }
  if (event.event == nullptr) return Fail(condition::badValue);
  // Behind this the source may have been disabled.
  return hasDialog_ && parts_.dialog.TakeEvent(event.event) ? result::sourceEvent : result::notSourceEvent;
}

// One image for each area of each page. Result: a sentence where there is none.
std::string DataSource::PlanJobs() {
  EndJobs();
  const bool feeds = agreed_.settings.paperSource == set32::paper_source::feeder;
  std::vector<std::filesystem::path> pages = parts_.scanner.Pages(agreed_.settings.paperSource);
  if (pages.empty()) return feeds ? "The feeder is empty." : "No page lies on the glass.";
  if (!agreed_.autoFeed) pages.resize(1);
  std::uint32_t pageNumber = 0;
  for (const std::filesystem::path& page : pages) {
    ++pageNumber;
    std::uint32_t frameNumber = 0;
    for (const Area& area : AreasOf(agreed_)) jobs_.push_back({page, area, pageNumber, ++frameNumber});
  }
  const auto wanted = static_cast<std::size_t>(agreed_.count);
  if (agreed_.count > 0 && wanted < jobs_.size()) jobs_.resize(wanted);
  return {};
}

std::string DataSource::OnScan(const set32::ScanSettings& settings, const std::vector<Area>& areas) {
  if (state_ != 5) return {};
  agreed_.settings = settings;
  agreed_.settings.frameCommand = 0;
  agreed_.frames = areas;
  if (onlySettings_) {
    parts_.messenger.DeliverLater(message::closeOk);
    return {};
  }
  std::string trouble = PlanJobs();
  if (trouble.empty()) {
    parts_.dialog.SetBusy(true);
    parts_.messenger.DeliverLater(message::transferReady);
  }
  return trouble;
}

void DataSource::OnClose() {
  if (state_ == 5) parts_.messenger.DeliverLater(message::closeRequest);
}

// The manager may call back before it returns. A message that outlived what it tells of is dropped.
void DataSource::Deliver(std::uint16_t told) {
  if (state_ != 5) return;
  if (told == message::transferReady) {
    if (jobs_.empty()) return;
    state_ = 6;
  }
  if (!parts_.messenger.CallManager(self_, told)) untold_ = told;
}

}  // namespace data_source

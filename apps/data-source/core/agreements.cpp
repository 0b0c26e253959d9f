// What application and source agree on while the source is open: capabilities, layout, stored settings.
#include <cstring>

#include "apps/data-source/core/data_source.h"

namespace data_source {

namespace condition = twain::condition;
namespace result = twain::result;
using set32::ScanSettings;

namespace {

twain::Frame FrameOf(const Area& area, const ScanSettings& settings) {
  std::vector<double> edges;
  AppendFrame(edges, area, settings);
  return {ToFixed(edges[0]), ToFixed(edges[1]), ToFixed(edges[2]), ToFixed(edges[3])};
}

Area AreaOfFrame(const twain::Frame& frame, const ScanSettings& settings) {
  const double edges[] = {FromFixed(frame.left), FromFixed(frame.top), FromFixed(frame.right),
                          FromFixed(frame.bottom)};
  return FrameInInches(edges, settings);
}

}  // namespace

std::uint16_t DataSource::GiveValues(twain::Capability& record, const Values& values) {
  const std::vector<std::uint8_t> bytes = Encode(values);
  const twain::Handle handle = Share(bytes.data(), bytes.size());
  if (handle == nullptr) return Fail(condition::lowMemory);
  record.containerType = values.container;
  record.container = handle;
  return result::success;
}

std::uint16_t DataSource::AnswerCapability(void* record, Asked asked) {
  auto& asking = *static_cast<twain::Capability*>(record);
  const Capability* capability = FindCapability(asking.cap);
  if (capability == nullptr) return Fail(condition::capUnsupported);
  return GiveValues(asking, Answer(*capability, asked, agreed_, parts_.scanner));
}

std::uint16_t DataSource::SetCapability(void* record) {
  const auto& asking = *static_cast<const twain::Capability*>(record);
  const Capability* capability = FindCapability(asking.cap);
  if (capability == nullptr) return Fail(condition::capUnsupported);
  if (capability->put == nullptr) return Fail(condition::capBadOperation);
  const auto* bytes =
      asking.container == nullptr ? nullptr : static_cast<const std::uint8_t*>(parts_.memory.Lock(asking.container));
  if (bytes == nullptr) return Fail(condition::badValue);
  const std::optional<Values> values = Decode(asking.containerType, {bytes, parts_.memory.Size(asking.container)});
  parts_.memory.Unlock(asking.container);
  if (!values || !Take(*capability, *values, agreed_)) return Fail(condition::badValue);
  return result::success;
}

std::uint16_t DataSource::ResetCapability(void* record) {
  auto& asking = *static_cast<twain::Capability*>(record);
  const Capability* capability = FindCapability(asking.cap);
  if (capability == nullptr) return Fail(condition::capUnsupported);
  if (capability->put == nullptr) return Fail(condition::capBadOperation);
  Reset(*capability, agreed_, parts_.scanner);
  return GiveValues(asking, Answer(*capability, Asked::offer, agreed_, parts_.scanner));
}

std::uint16_t DataSource::QuerySupport(void* record) {
  auto& asking = *static_cast<twain::Capability*>(record);
  const Capability* capability = FindCapability(asking.cap);
  if (capability == nullptr) return Fail(condition::capUnsupported);
  return GiveValues(asking,
                    {twain::container::oneValue, twain::type::uint32, {static_cast<double>(capability->Support())}});
}

// While images wait, the place of the one that comes next.
std::uint16_t DataSource::GetLayout(void* record) {
  auto& layout = *static_cast<twain::ImageLayout*>(record);
  layout = {FrameOf(AreasOf(agreed_).front(), agreed_.settings), 1, 1, 1};
  if (job_ < jobs_.size()) {
    const Job& job = jobs_[job_];
    layout = {FrameOf(job.area, agreed_.settings), 1, job.pageNumber, job.frameNumber};
  }
  return result::success;
}

std::uint16_t DataSource::GetDefaultLayout(void* record) {
  *static_cast<twain::ImageLayout*>(record) = {FrameOf(AreaOf(NewSettings()), agreed_.settings), 1, 1, 1};
  return result::success;
}

std::uint16_t DataSource::SetLayout(void* record) {
  const auto& layout = *static_cast<const twain::ImageLayout*>(record);
  if (!PutLayout(agreed_, AreaOfFrame(layout.frame, agreed_.settings))) return Fail(condition::badValue);
  return result::success;
}

std::uint16_t DataSource::ResetLayout(void* record) {
  Reset(*FindCapability(twain::cap::frames), agreed_, parts_.scanner);
  return GetLayout(record);
}

// The whole record, as a profile stores it.
std::uint16_t DataSource::GetCustomData(void* record) {
  auto& stored = *static_cast<twain::CustomData*>(record);
  stored.data = Share(&agreed_.settings, sizeof agreed_.settings);
  if (stored.data == nullptr) return Fail(condition::lowMemory);
  stored.length = sizeof agreed_.settings;
  return result::success;
}

std::uint16_t DataSource::SetCustomData(void* record) {
  const auto& stored = *static_cast<const twain::CustomData*>(record);
  if (stored.data == nullptr || stored.length != sizeof(ScanSettings) ||
      parts_.memory.Size(stored.data) < sizeof(ScanSettings))
    return Fail(condition::badValue);
  const void* bytes = parts_.memory.Lock(stored.data);
  if (bytes == nullptr) return Fail(condition::badValue);
  ScanSettings settings{};
  std::memcpy(&settings, bytes, sizeof settings);
  parts_.memory.Unlock(stored.data);
  settings.frameCommand = 0;  // a stored pointer means nothing
  if (!IsScannable(settings)) return Fail(condition::badValue);
  agreed_.settings = settings;
  agreed_.frames.clear();
  agreed_.laid.all = true;
  return result::success;
}

std::uint16_t DataSource::GetTransferGroup(void* record) {
  const std::uint32_t image = twain::group::image;
  std::memcpy(record, &image, sizeof image);
  return result::success;
}

std::uint16_t DataSource::SetTransferGroup(void* record) {
  std::uint32_t wanted = 0;
  std::memcpy(&wanted, record, sizeof wanted);
  return wanted == twain::group::image ? result::success : Fail(condition::badValue);
}

}  // namespace data_source

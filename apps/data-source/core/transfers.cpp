// How images go to the application: as a bitmap in memory, strip by strip, or as a file.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>

#include "apps/data-source/core/data_source.h"

namespace data_source {

namespace condition = twain::condition;
namespace result = twain::result;

namespace {

// Without a name a file lies in the application's working folder.
twain::SetupFile SetupOf(const std::string& name, std::uint16_t format) {
  const char* standard = format == twain::file_format::jfif ? "scan.jpg" : "scan.bmp";
  twain::SetupFile setup{};
  std::strncpy(setup.name, name.empty() ? standard : name.c_str(), sizeof setup.name - 1);
  setup.format = format;
  return setup;
}

std::vector<std::uint8_t> BitmapFileOf(const ScannedImage& image) {
  std::vector<std::uint8_t> bytes = BitmapFileHead(image);
  const std::size_t head = bytes.size();
  bytes.resize(head + BitmapSize(image));
  WriteBitmap(image, std::span(bytes).subspan(head));
  return bytes;
}

std::int16_t TypeOf(PixelKind kind) {
  if (kind == PixelKind::blackWhite) return twain::pixel_type::blackWhite;
  return SamplesOf(kind) == 3 ? twain::pixel_type::rgb : twain::pixel_type::gray;
}

}  // namespace

// Bitmaps know no samples of 16 bits, so these are scanned for transfers through memory alone.
ScanOrder DataSource::PresentOrder() const {
  ScanOrder order{agreed_.settings, job_ < jobs_.size() ? jobs_[job_].area : AreasOf(agreed_).front(),
                  agreed_.threshold};
  if (agreed_.mechanism != twain::mechanism::memory) order.settings.highBitDepth = 0;
  return order;
}

// Scans the image whose turn it is. On false the images still wait.
bool DataSource::EnsureImage(std::uint16_t& failure) {
  if (image_) return true;
  ScanResult scanned = parts_.scanner.Scan(jobs_[job_].page, PresentOrder());
  if (scanned.trouble == ScanTrouble::none) {
    image_ = std::move(scanned.image);
    rowsGiven_ = 0;
    return true;
  }
  switch (scanned.trouble) {
    case ScanTrouble::lowMemory:
      failure = Fail(condition::lowMemory, "Memory is too short for this image.");
      break;
    case ScanTrouble::notCompressed:
      failure = Fail(condition::bummer, "This image can't be compressed.");
      break;
    default:
      failure = Fail(condition::bummer, "This page can't be read: " + jobs_[job_].page.filename().string());
      break;
  }
  return false;
}

void DataSource::EndJobs() {
  jobs_.clear();
  job_ = 0;
  image_.reset();
}

std::uint16_t DataSource::GetPending(void* record) {
  *static_cast<twain::PendingTransfers*>(record) = {PendingCount(), 0};
  return result::success;
}

std::uint16_t DataSource::EndTransfer(void* record) {
  image_.reset();
  ++job_;
  state_ = 6;
  *static_cast<twain::PendingTransfers*>(record) = {PendingCount(), 0};
  return PendingCount() > 0 ? result::success : ResetPending(record);
}

std::uint16_t DataSource::ResetPending(void* record) {
  EndJobs();
  state_ = 5;
  if (hasDialog_) parts_.dialog.SetBusy(false);
  *static_cast<twain::PendingTransfers*>(record) = {0, 0};
  return result::success;
}

std::uint16_t DataSource::GetImageInfo(void* record) {
  const ImageShape shape = ShapeOf(PresentOrder());
  const auto samples = static_cast<std::int16_t>(SamplesOf(shape.kind));
  const auto bits = static_cast<std::int16_t>(BitsOf(shape.kind));
  twain::ImageInfo info{};
  info.resolutionX = info.resolutionY = ToFixed(shape.dpi);
  info.width = shape.width;
  info.length = shape.height;
  info.samples = samples;
  for (int i = 0; i < samples; ++i) info.bitsPerSample[i] = bits;
  info.bitsPerPixel = static_cast<std::int16_t>(samples * bits);
  info.pixelType = TypeOf(shape.kind);
  *static_cast<twain::ImageInfo*>(record) = info;
  return result::success;
}

std::uint16_t DataSource::GetSetupMemory(void* record) {
  constexpr std::uint32_t strip = 1U << 16;
  const ImageShape shape = ShapeOf(PresentOrder());
  const auto row = static_cast<std::uint32_t>(EmptyImage(shape.kind, shape.width, 0, shape.dpi).stride);
  *static_cast<twain::SetupMemory*>(record) = {row, twain::dontCare32, std::max(row, strip / row * row)};
  return result::success;
}

std::uint16_t DataSource::GetSetupFile(void* record) {
  *static_cast<twain::SetupFile*>(record) = SetupOf(file_, agreed_.fileFormat);
  return result::success;
}

std::uint16_t DataSource::GetDefaultSetupFile(void* record) {
  *static_cast<twain::SetupFile*>(record) = SetupOf({}, twain::file_format::bmp);
  return result::success;
}

std::uint16_t DataSource::SetSetupFile(void* record) {
  const auto& setup = *static_cast<const twain::SetupFile*>(record);
  const void* end = std::memchr(setup.name, 0, sizeof setup.name);
  const bool isKnown = setup.format == twain::file_format::bmp || setup.format == twain::file_format::jfif;
  if (!isKnown || end == nullptr || end == setup.name) return Fail(condition::badValue);
  file_ = setup.name;
  agreed_.fileFormat = setup.format;
  return result::success;
}

std::uint16_t DataSource::ResetSetupFile(void* record) {
  file_.clear();
  agreed_.fileFormat = twain::file_format::bmp;
  return GetSetupFile(record);
}

std::uint16_t DataSource::TransferNative(void* record) {
  std::uint16_t failure = 0;
  if (!EnsureImage(failure)) return failure;
  const std::size_t size = BitmapSize(*image_);
  const twain::Handle handle = parts_.memory.Allocate(size);
  void* memory = handle == nullptr ? nullptr : parts_.memory.Lock(handle);
  if (memory == nullptr) return Fail(condition::lowMemory, "Memory is too short for this image.");
  WriteBitmap(*image_, {static_cast<std::uint8_t*>(memory), size});
  parts_.memory.Unlock(handle);
  std::memcpy(record, &handle, sizeof handle);
  state_ = 7;
  return result::transferDone;
}

// As many whole rows as the application's buffer takes.
std::uint16_t DataSource::TransferMemory(void* record) {
  auto& transfer = *static_cast<twain::ImageMemory*>(record);
  std::uint16_t failure = 0;
  if (!EnsureImage(failure)) return failure;
  if (rowsGiven_ == image_->height) return Fail(condition::sequenceError);
  const auto stride = static_cast<std::uint32_t>(image_->stride);
  const int rows = static_cast<int>(std::min<std::uint32_t>(transfer.memory.length / stride,
                                                            static_cast<std::uint32_t>(image_->height - rowsGiven_)));
  const bool isHandle = (transfer.memory.flags & twain::memory_flag::handle) != 0;
  if (rows < 1 || transfer.memory.memory == nullptr ||
      (isHandle && parts_.memory.Size(transfer.memory.memory) < transfer.memory.length))
    return Fail(condition::badValue);
  void* into = isHandle ? parts_.memory.Lock(transfer.memory.memory) : transfer.memory.memory;
  if (into == nullptr) return Fail(condition::badValue);
  const auto size = static_cast<std::uint32_t>(rows) * stride;
  std::memcpy(into, image_->Row(rowsGiven_).data(), size);
  if (isHandle) parts_.memory.Unlock(transfer.memory.memory);
  transfer.compression = 0;
  transfer.bytesPerRow = stride;
  transfer.columns = static_cast<std::uint32_t>(image_->width);
  transfer.rows = static_cast<std::uint32_t>(rows);
  transfer.offsetX = 0;
  transfer.offsetY = static_cast<std::uint32_t>(rowsGiven_);
  transfer.bytesWritten = size;
  rowsGiven_ += rows;
  state_ = 7;
  return rowsGiven_ < image_->height ? result::success : result::transferDone;
}

std::uint16_t DataSource::TransferFile(void*) {
  std::uint16_t failure = 0;
  if (!EnsureImage(failure)) return failure;
  const std::string name = SetupOf(file_, agreed_.fileFormat).name;
  const std::vector<std::uint8_t> bytes = agreed_.fileFormat == twain::file_format::jfif
                                              ? parts_.scanner.Compress(*image_, agreed_.settings.jpegQuality)
                                              : BitmapFileOf(*image_);
  if (bytes.empty()) return Fail(condition::badValue, "This image can't be compressed.");
  std::ofstream file(name, std::ios::binary);
  const bool isMade = file.is_open();
  file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) {
    if (isMade) std::remove(name.c_str());
    return Fail(condition::fileWriteError, "This file can't be written: " + name);
  }
  state_ = 7;
  return result::transferDone;
}

}  // namespace data_source

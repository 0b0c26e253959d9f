// The data source without windows: an application's calls, pages in a folder, a dialog that the test presses.
#pragma once

#include <gmock/gmock.h>

#include <cstring>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "apps/data-source/core/data_source.h"
#include "tests/support/scratch_folder.h"

namespace data_source {

// A bitmap file of 24 bits: `colour` tells the bytes blue, green, red of a pixel, counted from the upper left.
template <typename Colour>
std::string BitmapFile(int width, int height, int dpi, Colour colour) {
  ScannedImage image = EmptyImage(PixelKind::colour24, width, height, dpi);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const std::array<int, 3> pixel = colour(x, y);
      for (std::size_t band = 0; band < 3; ++band)
        image.Row(y)[static_cast<std::size_t>(x) * 3 + 2 - band] = static_cast<std::uint8_t>(pixel[band]);
    }
  }
  std::vector<std::uint8_t> bytes = BitmapFileHead(image);
  const std::size_t head = bytes.size();
  bytes.resize(head + BitmapSize(image));
  WriteBitmap(image, std::span(bytes).subspan(head));
  return {bytes.begin(), bytes.end()};
}

class HeapMemory final : public SharedMemory {
 public:
  twain::Handle Allocate(std::size_t size) override {
    if (isShort) return nullptr;
    auto block = std::make_unique<std::vector<std::uint8_t>>(size);
    twain::Handle handle = block.get();
    blocks_[handle] = std::move(block);
    return handle;
  }
  void Free(twain::Handle handle) override { blocks_.erase(handle); }
  void* Lock(twain::Handle handle) override { return blocks_.contains(handle) ? blocks_[handle]->data() : nullptr; }
  void Unlock(twain::Handle) override {}
  std::size_t Size(twain::Handle handle) override { return blocks_.contains(handle) ? blocks_[handle]->size() : 0; }
  void Borrow(const twain::EntryPoint&) override {}

  twain::Handle Lay(const std::vector<std::uint8_t>& bytes) {
    const twain::Handle handle = Allocate(bytes.size());
    std::copy(bytes.begin(), bytes.end(), static_cast<std::uint8_t*>(Lock(handle)));
    return handle;
  }

  bool isShort = false;

 private:
  std::map<twain::Handle, std::unique_ptr<std::vector<std::uint8_t>>> blocks_;
};

struct QueuedMessages final : Messenger {
  bool Open() override { return true; }
  void Close() override { waiting.clear(); }
  void DeliverLater(std::uint16_t message) override { waiting.push_back(message); }
  bool CallManager(twain::Identity&, std::uint16_t message) override {
    if (hasManager) told.push_back(message);
    return hasManager;
  }

  std::vector<std::uint16_t> waiting, told;
  bool hasManager = true;
};

struct PressedDialog final : SourceDialog {
  bool Open(const DialogOrder& order, std::string& trouble) override {
    stands = missing.empty();
    record = NewSettings();
    LayOver(order.agreed, true, record);
    trouble = missing;
    return stands;
  }
  void Close() override { stands = false; }
  void SetBusy(bool busy) override { isBusy = busy; }
  bool TakeEvent(twain::Handle) override { return false; }

  bool stands = false, isBusy = false;
  set32::ScanSettings record{};
  std::string missing;
};

class SourceCase : public testing::Test {
 protected:
  SourceCase() { std::filesystem::create_directories(pages_.Path("feeder")); }

  std::uint16_t Call(std::uint32_t group, std::uint16_t data, std::uint16_t message, void* record = nullptr) {
    return source_.Handle(group, data, message, record);
  }
  template <typename Record>
  std::uint16_t Ask(std::uint32_t group, std::uint16_t data, std::uint16_t message, Record& record) {
    return Call(group, data, message, &record);
  }
  std::uint16_t Condition() {
    twain::Status status{};
    Ask(twain::group::control, twain::data::status, twain::message::get, status);
    return status.condition;
  }
  std::uint16_t Open() {
    twain::Identity identity{};
    return Ask(twain::group::control, twain::data::identity, twain::message::openSource, identity);
  }
  std::uint16_t Enable(bool shows, std::uint16_t message = twain::message::enable) {
    twain::UserInterface wanted{shows, 0, nullptr};
    return Ask(twain::group::control, twain::data::userInterface, message, wanted);
  }
  // What the application's loop does.
  void Pump() {
    for (const std::uint16_t message : std::exchange(messages_.waiting, {})) source_.Deliver(message);
  }
  std::uint16_t Set(std::uint16_t cap, const Values& values) {
    twain::Capability record{cap, values.container, memory_.Lay(Encode(values))};
    return Ask(twain::group::control, twain::data::capability, twain::message::set, record);
  }
  std::uint16_t Set(std::uint16_t cap, double value) {
    return Set(cap, {twain::container::oneValue, FindCapability(cap)->type, {value}});
  }
  std::optional<Values> Get(std::uint16_t cap, std::uint16_t message = twain::message::getCurrent) {
    twain::Capability record{cap, 0, nullptr};
    if (Ask(twain::group::control, twain::data::capability, message, record) != twain::result::success) return {};
    return Decode(record.containerType,
                  {static_cast<std::uint8_t*>(memory_.Lock(record.container)), memory_.Size(record.container)});
  }
  double Current(std::uint16_t cap) {
    const std::optional<Values> values = Get(cap);
    return values && !values->numbers.empty() ? values->numbers.front() : -1e9;
  }
  twain::ImageInfo Info() {
    twain::ImageInfo info{};
    EXPECT_EQ(Ask(twain::group::image, twain::data::imageInfo, twain::message::get, info), 0);
    return info;
  }
  int EndTransfer() {
    twain::PendingTransfers pending{};
    EXPECT_EQ(Ask(twain::group::control, twain::data::pendingTransfers, twain::message::endTransfer, pending), 0);
    return pending.count;
  }

  set32::ScratchFolder pages_;
  Scanner scanner_{pages_.Path("")};
  HeapMemory memory_;
  QueuedMessages messages_;
  PressedDialog dialog_;
  DataSource source_{{scanner_, memory_, messages_, dialog_}};
};

}  // namespace data_source

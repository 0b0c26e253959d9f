// How time and memory grow with what the panel is given: rows of configurations, bytes of the profile, scanners,
// pixels of the preview. Each line holds a size, the time of the work and the most memory that it held beyond what
// stood before; behind them by what factor the size grew since the line above, and by what factor the time did.
// Memory is what was asked for; of the room into which a large section is read, much is never touched.
//
//   growth [--most-megapixels N]     100 unless told
#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "bench/side_by_side.h"
#include "resources/ids.h"
#include "scanner/scanner_record.h"
#include "tests/support/memory_files.h"
#include "tests/support/memory_world.h"

namespace {

std::atomic<std::size_t> held{0};
std::atomic<std::size_t> most{0};

void* Take(std::size_t size) {
  void* block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  const std::size_t now = held += malloc_usable_size(block);
  std::size_t seen = most;
  while (now > seen && !most.compare_exchange_weak(seen, now)) {
  }
  return block;
}

void Give(void* block) {
  if (block == nullptr) return;
  held -= malloc_usable_size(block);
  std::free(block);
}

}  // namespace

void* operator new(std::size_t size) {
  return Take(size);
}
void operator delete(void* block) noexcept {
  Give(block);
}
void operator delete(void* block, std::size_t) noexcept {
  Give(block);
}

namespace {

using namespace set32;

void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "growth: %s\n", what);
  std::exit(1);
}

// A panel over files in memory; what is measured is done to it.
struct Panel {
  explicit Panel(MemoryFiles& files) : world(files), module(world.platform), host(world) {}
  void Open(CDib* preview) {
    page = host.Open(module, preview);
    Require(page != nullptr, "the panel can't be opened");
  }
  void Change() { world.screen.input.PickEntry(page->Get<Combo>(id::resolutionCombo), entry = 7 - entry); }
  void SearchAgain() { world.screen.input.Click(page->Get<Button>(id::refreshButton)); }

  MemoryWorld world;
  Module module;
  MemoryHost host;
  Dialog* page = nullptr;
  int entry = 3;
};

struct Case {
  std::string label;
  double size;
  MemoryFiles files;
  CDib* preview = nullptr;
};

using Work = std::function<void(Panel&, const Case&)>;
const Work open = [](Panel& panel, const Case& one) { panel.Open(one.preview); };
const Work everyStage = [](Panel& panel, const Case& one) {
  ScanSettings& settings = *panel.host.record;
  settings.brightness = settings.sharpness = settings.saturation = settings.hue = 20;
  panel.Open(one.preview);
};
const Work close = [](Panel& panel, const Case&) { panel.host.End(); };
const Work change = [](Panel& panel, const Case&) { panel.Change(); };
const Work searchAgain = [](Panel& panel, const Case&) { panel.SearchAgain(); };

struct Figures {
  double seconds = 0;
  std::size_t bytes = 0;
  double copying = 0;  // the preview, in seconds
};

// Each round on a panel of its own, so many that a line takes about a quarter of a second.
Figures Measure(const Case& one, const Work& work, bool opensBefore) {
  std::vector<double> times;
  std::vector<double> copies;
  std::vector<std::uint8_t> copy(one.preview == nullptr ? 0 : one.preview->imageSize);
  Figures figures;
  double spent = 0;
  for (int round = 0; round < 3 || (round < 200 && spent < 0.25); ++round) {
    MemoryFiles disk = one.files;
    Panel panel(disk);
    if (opensBefore) panel.Open(one.preview);
    const std::size_t before = held;
    most = before;
    times.push_back(Seconds([&] { work(panel, one); }));
    figures.bytes = std::max<std::size_t>(figures.bytes, most - before);
    if (!copy.empty())
      copies.push_back(Seconds([&] { std::memcpy(copy.data(), one.preview->sourcePixels, copy.size()); }));
    spent += times.back();
  }
  figures.seconds = Median(times);
  if (!copies.empty()) figures.copying = Median(copies);
  return figures;
}

void Print(const char* title, const std::vector<Case>& cases, const Work& work, bool opensBefore = true) {
  std::printf("\n%-36s %12s %13s %8s %8s\n", title, "time", "memory", "size x", "time x");
  const Case* last = nullptr;
  double seconds = 0;
  for (const Case& one : cases) {
    const Figures figures = Measure(one, work, opensBefore);
    std::printf("  %-34s %9.3f ms %10.1f KB", one.label.c_str(), figures.seconds * 1e3,
                static_cast<double>(figures.bytes) / 1024);
    if (last != nullptr && last->size > 0)
      std::printf(" %8.1f %8.1f", one.size / last->size, figures.seconds / seconds);
    if (figures.copying > 0) std::printf("   %.1f x memcpy", figures.seconds / figures.copying);
    std::printf("\n");
    std::fflush(stdout);
    last = &one;
    seconds = figures.seconds;
  }
}

// A profile with so many configurations for the flatbed; a fresh one has six.
MemoryFiles ProfileOf(int rows) {
  MemoryFiles files;
  {
    Panel panel(files);
    panel.Open(nullptr);
  }
  std::string& text = files.content[MemoryWorld::profilePath];
  const std::size_t begin = text.find('\n') + 1, end = text.find("[Tmp]");
  const std::size_t value = text.find('=', begin);
  const std::string one = text.substr(value, text.find('\n', value) + 1 - value);
  std::string lines = rows < 6 ? std::string() : text.substr(begin, end - begin);
  for (int row = 6; row < rows; ++row) lines += "row " + std::to_string(row) + one;
  text.replace(begin, end - begin, lines);
  return files;
}

void MeasureRows() {
  std::vector<Case> cases;
  for (const int rows : {0, 6, 15, 31})
    cases.push_back({std::to_string(rows) + " rows", 1.0 * rows, ProfileOf(rows)});
  Print("opening, by rows", cases, open, false);
  Print("a change, by rows", cases, change);
}

void MeasureProfile() {
  std::vector<Case> cases;
  for (const int rows : {6, 114, 1190, 11950}) {
    MemoryFiles files = ProfileOf(rows);
    const std::size_t bytes = files.content[MemoryWorld::profilePath].size();
    cases.push_back({std::to_string((bytes + 512) / 1024) + " KB", static_cast<double>(bytes), files});
  }
  Print("opening, by the profile's size", cases, open, false);
  Print("a change, by the profile's size", cases, change);
}

// As many as typed addresses and answers gave; the list's limit is the last.
void MeasureScanners() {
  std::vector<Case> cases;
  for (const int count : {0, 16, 128, 1024}) {
    MemoryFiles files = ProfileOf(6);
    files.content[MemoryWorld::modulePath] = "[RunTime]\nDriverType=0\n";
    std::string& list = files.content["temp/QUIRNSLT.dat"];
    list = {'D', 'L', static_cast<char>(count), 0};
    for (int i = 0; i < count; ++i) {
      ScannerRecord record;
      record.lowHalf = static_cast<std::uint32_t>(i % 250 + 1);
      record.highHalf = static_cast<std::uint32_t>(i / 250 + 1) << 8 | 10U;
      record.id = record.highHalf << 16 | record.lowHalf;
      record.port = networkScannerPort;
      record.SetName("10." + std::to_string(i / 250 + 1) + ".0." + std::to_string(i % 250 + 1));
      const ScannerRecordBytes bytes = EncodeRecord(record);
      list.append(bytes.begin(), bytes.end());
    }
    cases.push_back({std::to_string(count) + " scanners", 1.0 * count, files});
  }
  Print("opening, by scanners", cases, open, false);
  Print("the button that searches again", cases, searchAgain);
  Print("the end, by scanners", cases, close);
}

// A picture that a host owns; the panel renders into its display pixels.
struct Picture {
  explicit Picture(int megapixels) : source(Bytes(megapixels), 0x60), display(source) {
    header = {40, width, megapixels * 1000, 1, 24, 0, 0, 0, 0, 0, 0};
    dib.header = &header;
    dib.ComputeMetrics();
    Require(dib.imageSize == source.size(), "a picture of another size");
    dib.sourcePixels = source.data();
    dib.displayPixels = display.data();
  }
  ~Picture() { dib.header = nullptr; }
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  static constexpr int width = 1000;
  static std::size_t Bytes(int megapixels) { return static_cast<std::size_t>(megapixels) * 1000 * 3000; }

  std::vector<std::uint8_t> source;
  std::vector<std::uint8_t> display;
  BitmapInfoHeader header;
  CDib dib;
};

void MeasurePicture(int mostMegapixels) {
  std::vector<std::unique_ptr<Picture>> pictures;
  std::vector<Case> cases;
  for (int megapixels = 1; megapixels <= mostMegapixels; megapixels = megapixels == 1 ? 10 : megapixels * 5 / 2) {
    pictures.push_back(std::make_unique<Picture>(megapixels));
    cases.push_back(
        {std::to_string(megapixels) + " million pixels", 1.0 * megapixels, ProfileOf(6), &pictures.back()->dib});
  }
  Print("a refresh in colour, by the preview", cases, open);
  Print("a refresh with every stage", cases, everyStage);
}

}  // namespace

int main(int count, char** values) {
  int megapixels = 100;
  const std::string_view name(count > 1 ? values[1] : "");
  const std::string_view value(count == 3 ? values[2] : "");
  if (count != 1) {
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), megapixels);
    if (name != "--most-megapixels" || error != std::errc() || end != value.data() + value.size() || megapixels < 1) {
      std::fprintf(stderr, "usage: growth [--most-megapixels N]\n");
      return 2;
    }
  }
  MeasureRows();
  MeasureProfile();
  MeasureScanners();
  MeasurePicture(megapixels);
  return 0;
}

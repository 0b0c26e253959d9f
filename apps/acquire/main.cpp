// A small application: scans through the system's source manager and writes each image as a bitmap file.
//
//   acquire.exe [--ui] [--dpi N] [--mode colour|gray|bw] [--feeder] [--frames L,T,R,B[;L,T,R,B...]] [--out FOLDER]
//
// Frames are inches. With --ui the source shows its dialog, and the scan is what a person sets there. The files are
// FOLDER\scan-1.bmp and so on; what was written is told line by line. The exit status is 0, 1 when nothing was
// scanned, 2 for a wrong command line.
#include <windows.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/acquire/road/acquisition.h"
#include "set32/dib.h"

namespace {

constexpr char usage[] =
    "acquire [--ui] [--dpi N] [--mode colour|gray|bw] [--feeder] [--frames L,T,R,B[;L,T,R,B...]] [--out FOLDER]\n";
constexpr char sourceName[] = "set32 data source";

struct Wanted {
  bool shows = false, feeds = false;
  std::optional<int> dpi;
  std::optional<int> pixelType;
  std::vector<double> frames;  // four numbers each
  std::string folder = ".";
};

// "0,0,4,5;4,5,8.5,11" as numbers; nothing for anything else.
std::optional<std::vector<double>> ReadFrames(const char* text) {
  std::vector<double> numbers;
  for (;;) {
    char* end = nullptr;
    numbers.push_back(std::strtod(text, &end));
    if (end == text) return {};
    const bool isWhole = numbers.size() % 4 == 0;
    if (*end == '\0') return isWhole ? std::optional(numbers) : std::nullopt;
    if (*end != (isWhole ? ';' : ',')) return {};
    text = end + 1;
  }
}

bool ReadOption(Wanted& wanted, std::string_view name, const char* value) {
  if (name == "--dpi") {
    char* end = nullptr;
    wanted.dpi = static_cast<int>(std::strtol(value, &end, 10));
    return end != value && *end == '\0';
  }
  if (name == "--mode") {
    constexpr std::array<std::string_view, 3> modes{"bw", "gray",
                                                    "colour"};  // in the order of the protocol's numbers
    for (std::size_t i = 0; i < modes.size(); ++i) {
      if (modes[i] == value) wanted.pixelType = static_cast<int>(i);
    }
    return wanted.pixelType.has_value();
  }
  if (name == "--frames") {
    const std::optional<std::vector<double>> frames = ReadFrames(value);
    wanted.frames = frames.value_or(std::vector<double>{});
    return frames.has_value();
  }
  wanted.folder = value;
  return name == "--out" && *value != '\0';
}

std::optional<Wanted> ReadArguments(int count, char** values) {
  Wanted wanted;
  for (int i = 1; i < count; ++i) {
    const std::string_view name = values[i];
    if (name == "--ui") {
      wanted.shows = true;
    } else if (name == "--feeder") {
      wanted.feeds = true;
    } else if (i + 1 == count || !ReadOption(wanted, name, values[++i])) {
      return {};
    }
  }
  return wanted;
}

bool Negotiate(acquire::Acquisition& acquisition, const Wanted& wanted) {
  namespace cap = twain::cap;
  namespace type = twain::type;
  return (!wanted.feeds || acquisition.Set(cap::feederEnabled, type::boolean, 1)) &&
         (!wanted.pixelType || acquisition.Set(cap::pixelType, type::uint16, *wanted.pixelType)) &&
         (!wanted.dpi || acquisition.Set(cap::resolutionX, type::fixed, *wanted.dpi)) &&
         (wanted.frames.empty() ||
          acquisition.Set(cap::frames, {twain::container::enumeration, type::frame, wanted.frames}));
}

bool WriteFile(const std::string& path, const acquire::Bitmap& bitmap) {
  set32::BitmapInfoHeader header{};
  if (bitmap.size() < sizeof header) return false;
  std::memcpy(&header, bitmap.data(), sizeof header);
  std::array<char, 14> head{'B', 'M'};
  const auto pixels =
      static_cast<std::uint32_t>(head.size() + header.headerSize + header.coloursUsed * sizeof(set32::ColourEntry));
  const auto size = static_cast<std::uint32_t>(head.size() + bitmap.size());
  std::memcpy(&head[2], &size, sizeof size);
  std::memcpy(&head[10], &pixels, sizeof pixels);
  std::ofstream file(path, std::ios::binary);
  file.write(head.data(), head.size());
  file.write(reinterpret_cast<const char*>(bitmap.data()), static_cast<std::streamsize>(bitmap.size()));
  file.close();
  if (!file) return false;
  std::printf("%s: %d by %d pixels of %d bits, %d dpi\n", path.c_str(), static_cast<int>(header.width),
              static_cast<int>(header.height), static_cast<int>(header.bitCount),
              static_cast<int>(std::lround(header.pixelsPerMetreX * 0.0254)));
  return true;
}

// All images of one scan into files. Result: how many there are, -1 on a failure, which was told.
int TakeImages(acquire::Acquisition& acquisition, const std::string& folder, int before) {
  int count = 0;
  do {
    const std::optional<acquire::Bitmap> bitmap = acquisition.Transfer();
    if (!bitmap) {
      std::fprintf(stderr, "acquire: %s\n", acquisition.Trouble().c_str());
      return -1;
    }
    const std::string path = folder + "\\scan-" + std::to_string(before + ++count) + ".bmp";
    if (!WriteFile(path, *bitmap)) {
      std::fprintf(stderr, "acquire: %s can't be written\n", path.c_str());
      return -1;
    }
  } while (acquisition.EndTransfer() > 0);
  return count;
}

// With a dialog a person scans until it is closed.
int Run(acquire::Acquisition& acquisition, const Wanted& wanted, HWND parent) {
  if (!acquisition.OpenManager(parent) || !acquisition.OpenSource(sourceName) || !Negotiate(acquisition, wanted) ||
      !acquisition.Enable(wanted.shows)) {
    std::fprintf(stderr, "acquire: %s\n", acquisition.Trouble().c_str());
    return 1;
  }
  int images = 0;
  while (acquisition.Wait() == twain::message::transferReady) {
    const int taken = TakeImages(acquisition, wanted.folder, images);
    if (taken < 0) return 1;
    images += taken;
    if (!wanted.shows) break;
  }
  if (images == 0) std::fprintf(stderr, "acquire: nothing was scanned\n");
  return images == 0 ? 1 : 0;
}

}  // namespace

int main(int count, char** values) {
  const std::optional<Wanted> wanted = ReadArguments(count, values);
  if (!wanted) {
    std::fputs(usage, stderr);
    return 2;
  }
  const HWND parent = CreateWindowExW(0, L"Static", L"acquire", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                                      320, 120, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  int status = 0;
  {
    acquire::Acquisition acquisition;
    status = Run(acquisition, *wanted, parent);
  }
  DestroyWindow(parent);
  return status;
}

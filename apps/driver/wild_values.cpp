#include "apps/driver/wild_values.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <type_traits>

#include "boundary/option_keys.h"

namespace set32 {

namespace {

// What is at the edge of something, as the 8 bytes that a place may take up.
std::uint64_t EdgeValue(Choices& choices) {
  const auto word = [](double number) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
  };
  using Limits = std::numeric_limits<double>;
  const std::uint64_t edges[] = {0,
                                 1,
                                 2,
                                 3,
                                 0x7F,
                                 0xFF,
                                 0x7FFF,
                                 0xFFFF,
                                 0x7FFFFFFF,
                                 0x80000000,
                                 0xFFFFFFFF,
                                 UINT64_MAX,
                                 word(1.0),
                                 word(0.01),
                                 word(8.5),
                                 word(-1.0),
                                 word(1e300),
                                 word(-1e300),
                                 word(1e-300),
                                 word(10.0),
                                 word(Limits::infinity()),
                                 word(-0.0),
                                 word(Limits::quiet_NaN())};
  return choices.OneOf(edges);
}

const IntegerKey* const integerKeys[] = {
    &module_key::driverType,  &hardware_key::highBitControl, &option_key::uiFace,
    &option_key::oem,         &option_key::lowLevelDriver,   &option_key::paperSourceControls,
    &option_key::paperSource, &option_key::hasCrop,          &option_key::feederAutoCrop};
const TextKey* const textKeys[] = {
    &module_key::runtimeOptionsName, &module_key::profileName,         &module_key::scannerListName,
    &module_key::deviceIds[0],       &hardware_key::dialogPlace,       &option_key::productName,
    &option_key::application,        &option_key::highBitApplications, &option_key::defaultDevice};

std::string WildValue(Choices& choices) {
  static constexpr const char* values[] = {"",       "0",  "1",         "2",    "-1",       "99999999999",
                                           "1,-5,9", "\"", "../up.ini", "nul",  "a b c",    "0,0,100000,1",
                                           "0x10",   ";",  "=",         "%s%n", "10.0.0.9", "VID_0C5A&PID_0E72"};
  if (choices.OneIn(8)) return std::string(static_cast<std::size_t>(choices.Below(2000)), 'x');
  return choices.OneOf(values);
}

}  // namespace

void Bend(void* record, std::size_t size, Choices& choices) {
  auto* const bytes = static_cast<std::uint8_t*>(record);
  for (int left = choices.Below(6); left > 0; --left) {
    const std::size_t width = std::min(std::size_t{1} << choices.Below(4), size);
    const std::size_t at = choices.Next() % (size / width) * width;
    const std::uint64_t value =
        choices.OneIn(3) ? (std::uint64_t{choices.Next()} << 32 | choices.Next()) : EdgeValue(choices);
    std::memcpy(bytes + at, &value, width);
  }
}

WildPicture::WildPicture(Choices& choices) {
  static constexpr int sides[] = {1, 2, 3, 7, 40, 100, 255};
  header_.headerSize = sizeof header_;
  header_.width = choices.OneOf(sides);
  header_.height = choices.OneOf(sides);
  header_.planes = 1;
  header_.bitCount = 24;
  header_.pixelsPerMetreX = header_.pixelsPerMetreY = choices.Below(8000);
  dib_.header = &header_;
  dib_.ComputeMetrics();
  if (choices.OneIn(3)) Bend(header_, choices);  // the rest stays as it is, and so the two don't agree
  constexpr std::uint32_t largest = 1 << 19;
  if (choices.OneIn(4)) dib_.imageSize = choices.Next() % largest;
  if (choices.OneIn(4)) dib_.stride = choices.Next() % (2 * dib_.stride + 1);
  for (std::vector<std::uint8_t>* buffer : {&source_, &display_, &saved_}) {
    if (!choices.OneIn(12)) buffer->assign(dib_.imageSize, static_cast<std::uint8_t>(choices.Next()));
  }
  dib_.sourcePixels = source_.data();
  dib_.displayPixels = display_.data();
  dib_.savedPixels = saved_.data();
  if (choices.OneIn(12)) dib_.header = nullptr;
  Change(choices);
}

void WildPicture::Change(Choices& choices) {
  for (int left = source_.empty() ? 0 : choices.Below(20); left > 0; --left) {
    source_[choices.Next() % source_.size()] = static_cast<std::uint8_t>(choices.Next());
  }
  Bend(dib_.brightness, choices);
  Bend(dib_.contrast, choices);
  if (choices.OneIn(2)) Bend(dib_.kind, choices);
  for (double* gamma : {&dib_.gammaRed, &dib_.gammaGreen, &dib_.gammaBlue}) Bend(*gamma, choices);
}

std::string WildIniText(Choices& choices) {
  std::string text;
  for (int left = choices.Below(12); left > 0; --left) {
    const auto add = [&](const auto& key) {
      text.append("[").append(key.section).append("]\n").append(key.name).append("=").append(WildValue(choices));
    };
    if (choices.OneIn(2))
      add(*choices.OneOf(integerKeys));
    else
      add(*choices.OneOf(textKeys));
    text += choices.OneIn(10) ? "\r" : "\n";
  }
  if (choices.OneIn(6)) {
    for (const std::uint8_t byte : WildBytes(choices, 300)) text += static_cast<char>(byte);
  }
  return text;
}

std::vector<std::uint8_t> WildBytes(Choices& choices, int most) {
  static constexpr std::uint8_t answer[] = {'N', 'E', 'T', 'S', 0x20, 0, 0, 0, 0, 0, 0, 0};
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(choices.Below(most + 1)));
  std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<std::uint8_t>(choices.Next()); });
  if (choices.OneIn(2)) std::copy_n(answer, std::min(bytes.size(), sizeof answer), bytes.begin());
  return bytes;
}

}  // namespace set32

#include "apps/driver/wild_world.h"

#include <string>

#include "apps/driver/wild_values.h"

namespace set32 {

void WildWorld::ChooseFace() {
  files_.WriteKey(ModuleFile::options, "Option", "UIFace", choices_.OneIn(2) ? "0" : "1");
}

void WildWorld::WriteFiles() {
  static constexpr ModuleFile texts[] = {ModuleFile::hardware, ModuleFile::options};
  const std::string text = WildIniText(choices_);
  if (choices_.OneIn(3)) return files_.WriteBytes(ModuleFile::list, WildBytes(choices_, 500));
  if (choices_.OneIn(4)) {
    isProfileForeign_ = true;
    return files_.WriteBytes(ModuleFile::profile, WildProfile());
  }
  files_.WriteBytes(choices_.OneOf(texts), {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

// The one that stands, bent.
std::vector<std::uint8_t> WildWorld::WildProfile() {
  std::string text;
  for (const std::string& line : files_.Lines(ModuleFile::profile)) text.append(line).append("\n");
  std::vector<std::uint8_t> bytes(text.begin(), text.end());
  for (int left = choices_.Below(4); left > 0 && !bytes.empty(); --left) Bend(bytes.data(), bytes.size(), choices_);
  return bytes;
}

void WildWorld::ChangeTheRest() {
  switch (choices_.Below(4)) {
    case 0:
      outside_.Network().AddAnswer({choices_.Next(), WildBytes(choices_, 200), choices_.Below(5000)});
      return;
    case 1:
      return outside_.Usb().Place(choices_.Below(lastUsbNumber + 1), {static_cast<std::uint16_t>(choices_.Next()),
                                                                      static_cast<std::uint16_t>(choices_.Next())});
    case 2:
      return outside_.ThePlatform().clipboard.Write(choices_.OneIn(2) ? "12.5" : std::string(70'000, '7'));
    default:
      return outside_.Clock().Advance(choices_.Next() % 100'000);
  }
}

}  // namespace set32

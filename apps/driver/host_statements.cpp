// What the host holds, and what it does.
#include <array>
#include <limits>
#include <utility>

#include "apps/driver/interpreter.h"
#include "apps/driver/nearby_files.h"
#include "apps/driver/not_possible.h"
#include "apps/driver/settings_fields.h"
#include "apps/driver/suggestions.h"
#include "set32/messages.h"

namespace set32 {

namespace {

std::uint16_t RequireWord16(const Word& word) {
  return static_cast<std::uint16_t>(RequireInteger(word, 0, std::numeric_limits<std::uint16_t>::max()));
}

bool RequireYes(const Word& word) {
  if (word.text != "yes" && word.text != "no") throw NotPossible(Quote(word.text) + " is neither yes nor no");
  return word.text == "yes";
}

std::size_t CapabilityWord(const std::string& name) {
  if (name == "restrictedMaxDpi") return DeviceCaps::restrictedMaxDpiWord;
  if (name == "sourceCaps") return DeviceCaps::sourceCapsWord;
  if (name.starts_with("word")) {
    const auto index = ParseInteger(std::string_view(name).substr(4));
    if (index && *index >= 0 && *index < std::ssize(DeviceCaps{}.words)) return static_cast<std::size_t>(*index);
  }
  throw NotPossible("no capability " + name, "there are: restrictedMaxDpi, sourceCaps, word0 to word" +
                                                 std::to_string(std::ssize(DeviceCaps{}.words) - 1));
}

ModuleFile RequireFile(const Word& word) {
  const auto file = FindModuleFile(word.text);
  if (!file) throw NotPossible("no file " + Quote(word.text), Suggest(word.text, ModuleFileNames()));
  return *file;
}

std::uint32_t RequireAddress(const Word& word) {
  constexpr int fields = 4;
  std::uint32_t address = 0;
  std::string_view rest = word.text;
  for (int i = 0; i < fields; ++i) {
    const std::size_t point = i + 1 < fields ? rest.find('.') : rest.size();
    if (point == std::string_view::npos) throw NotPossible(Quote(word.text) + " is no address");
    const auto field = ParseInteger(rest.substr(0, point));
    if (!field || *field < 0 || *field > 255) throw NotPossible(Quote(word.text) + " is no address");
    address = address << 8 | static_cast<std::uint32_t>(*field);
    rest.remove_prefix(std::min(point + 1, rest.size()));
  }
  return address;
}

FrameCommand RequireFrame(const std::string& text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string::npos) throw NotPossible("the form is frame=ACTION,INDEX");
  FrameCommand frame{};
  frame.action = RequireWord32(std::string_view(text).substr(0, comma));
  frame.index = RequireWord32(std::string_view(text).substr(comma + 1));
  return frame;
}

}  // namespace

void Interpreter::Set(Words words) {
  session_.Host().SetField(words[0].text, words[1].text);
}

void Interpreter::Limits(Words words) {
  auto& limits = session_.Host().Arguments().limits;
  if (words.size() == 1 && words[0].text == "null") {
    limits.reset();
  } else if (words.size() == 4) {
    limits = DeviceLimits{RequireWord16(words[0]), RequireWord16(words[1]), RequireWord16(words[2]),
                          RequireWord16(words[3])};
  } else {
    throw NotPossible("limits takes null or four numbers");
  }
}

void Interpreter::Caps(Words words) {
  auto& caps = session_.Host().Arguments().caps;
  if (words.size() == 1 && words[0].text == "null") {
    caps.reset();
    return;
  }
  DeviceCaps changed = caps.value_or(DeviceCaps{});
  for (const Word& word : words) {
    const auto [name, value] = SplitAssignment(word);
    changed.words[CapabilityWord(name)] = RequireWord32(value);
  }
  caps = changed;
}

void Interpreter::Preview(Words words) {
  PreviewPicture& preview = session_.Host().Preview();
  const bool keyword = !words[0].quoted;
  if (keyword && words[0].text == "blank" && words.size() == 4) {
    preview.MakeBlank({RequireInt(words[1]), RequireInt(words[2])}, RequireInt(words[3]));
  } else if (words.size() != 1) {
    throw NotPossible("preview takes none, a file, or blank WIDTH HEIGHT DPI");
  } else if (keyword && words[0].text == "none") {
    preview.TakeAway();
  } else {
    Platform& platform = session_.Outside().ThePlatform();
    const std::string beside = options_.scriptFolder + words[0].text;
    const bool useBeside = platform.files.PresenceOf(words[0].text) == Presence::absent &&
                           platform.files.PresenceOf(beside) == Presence::present;
    if (!useBeside && platform.files.PresenceOf(words[0].text) == Presence::absent) {
      throw NotPossible("can't open " + words[0].text, Suggest(words[0].text, PicturesNearby()));
    }
    preview.ReadFile(platform.files, platform.boxes, useBeside ? beside : words[0].text);
  }
}

// As a statement would name them.
std::vector<std::string> Interpreter::PicturesNearby() const {
  const std::string& beside = options_.scriptFolder;
  std::vector<std::string> pictures = PicturesIn("");
  if (beside.empty()) return pictures;
  for (const std::string& picture : PicturesIn(beside)) pictures.push_back(picture.substr(beside.size()));
  return pictures;
}

void Interpreter::Rectangle(Words words) {
  session_.Host().Arguments().rect = {RequireInt(words[0]), RequireInt(words[1]), RequireInt(words[2]),
                                      RequireInt(words[3])};
}

void Interpreter::Arguments(Words words) {
  HostArguments changed = session_.Host().Arguments();
  for (const Word& word : words) {
    const auto [name, value] = SplitAssignment(word);
    const std::uint32_t number = RequireWord32(value);
    if (name == "jpegModes" && number <= 0xFF) {
      changed.jpegModes = static_cast<std::uint8_t>(number);
    } else if (name == "bwThreshold") {
      changed.bwThreshold = number;
    } else if (name == "outputBits") {
      changed.outputBits = number;
    } else {
      throw NotPossible("no argument " + word.text, "there are: jpegModes, bwThreshold, outputBits");
    }
  }
  session_.Host().Arguments() = changed;
}

void Interpreter::Ini(Words words) {
  const ModuleFile file = RequireFile(words[0]);
  if (file == ModuleFile::list) throw NotPossible("the list has no keys");
  session_.TheFiles().WriteKey(file, words[1].text, words[2].text, words[3].text);
}

void Interpreter::Usb(Words words) {
  constexpr int highest = 254;
  SimulatedUsb& usb = session_.Outside().Usb();
  const int number = static_cast<int>(RequireInteger(words[0], 0, highest));
  if (words.size() == 3) {
    usb.Place(number, {RequireWord16(words[1]), RequireWord16(words[2])});
  } else if (words[1].text == "silent") {
    usb.PlaceSilent(number);
  } else if (words[1].text == "none") {
    usb.Remove(number);
  } else {
    throw NotPossible("usb takes a vendor and a product, silent or none");
  }
}

void Interpreter::Net(Words words) {
  using Step = SimulatedNetwork::Step;
  static constexpr std::array<std::pair<std::string_view, Step>, 6> steps = {{
      {"start", Step::start},
      {"socket", Step::socket},
      {"bind", Step::bind},
      {"hostname", Step::hostName},
      {"lookup", Step::lookUp},
      {"send", Step::send},
  }};
  SimulatedNetwork& network = session_.Outside().Network();
  const std::string& what = words[1].text;
  if (words[0].text == "loops") {
    network.SetLoops(RequireYes(words[1]));
  } else if (words[0].text == "fail") {
    if (what == "nothing") return network.FailNothing();
    for (const auto& [name, step] : steps) {
      if (name == what) return network.Fail(step);
    }
    throw NotPossible("no step " + Quote(what), "there are: start, socket, bind, hostname, lookup, send, nothing");
  } else if (what == "silent") {
    network.Silence(RequireAddress(words[0]));
  } else {
    network.AddAnswer({RequireAddress(words[0]), RequireBytes(words[1])});
  }
}

void Interpreter::Bytes(Words words) {
  session_.TheFiles().WriteBytes(RequireFile(words[0]), RequireBytes(words[1]));
}

void Interpreter::RegistryValue(Words words) {
  if (!session_.Outside().TheRegistry().SetString(words[0].text, words[1].text, words[2].text)) {
    throw NotPossible("can't lay the value");
  }
}

void Interpreter::Stores(Words words) {
  if (words[0].text != "units" && words[0].text != "nothing") throw NotPossible("stores takes units or nothing");
  session_.Host().SetStoresUnits(words[0].text == "units");
}

void Interpreter::Record(Words words) {
  if (words[0].text != "new") throw NotPossible("record takes new");
  session_.Host().TakeNewRecord();
}

void Interpreter::Answers(Words words) {
  const auto wParam = RequireInteger(words[0], 0, std::numeric_limits<std::uint32_t>::max());
  session_.Host().SetAnswer(static_cast<WParam>(wParam), RequireInt(words[1]));
}

void Interpreter::Open(Words) {
  Print(session_.Open() ? "opened 1" : "opened 0");
}

// The person's close box of a dialog has the same word as the host's end of the panel.
void Interpreter::Close(Words words) {
  if (words.empty()) return session_.Host().Close();
  session_.Person().CloseBox(RequireInt(words[0]));
}

void Interpreter::EnablePage(Words words) {
  session_.Host().EnablePage(RequireYes(words[0]));
}

void Interpreter::Report(Words words) {
  const auto wParam = static_cast<WParam>(RequireWord32(words[0].text));
  std::optional<FrameCommand> frame;
  ScanSettings report = session_.Host().Settings();
  for (const Word& word : words.subspan(1)) {
    const auto [name, value] = SplitAssignment(word);
    if (name == "frame") {
      frame = RequireFrame(value);
    } else if (name == "frameCommand") {
      throw NotPossible("a report's frame command is written frame=ACTION,INDEX");
    } else {
      SetField(report, name, value);
    }
  }
  session_.Host().Report(
      wParam, [&report](ScanSettings& record) { record = report; }, frame);
}

void Interpreter::Send(Words words) {
  constexpr std::int64_t lowest = to_panel::frameReport;
  constexpr std::int64_t highest = 0xFFFF;
  const auto message = static_cast<std::uint32_t>(RequireInteger(words[0], lowest, highest));
  const auto number = [&words](std::size_t index) -> std::int64_t {
    return index < words.size() ? static_cast<std::int32_t>(RequireWord32(words[index].text)) : 0;
  };
  if (message == to_panel::frameReport && number(2) != 0) throw NotPossible("a record is sent by report");
  const MessageResult result =
      session_.Host().Send(message, static_cast<WParam>(number(1)), static_cast<LParam>(number(2)));
  Print("result " + std::to_string(result));
}

}  // namespace set32

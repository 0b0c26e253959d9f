// A scenario at the General page: what the host heard as one short line, and how the rows of the list stand in the
// profile.
#pragma once

#include <gmock/gmock.h>

#include <map>
#include <string>
#include <utility>

#include "tests/support/scenario.h"

namespace set32 {

class PageScenario : public Scenario {
 protected:
  using Profile = std::map<std::string, std::string>;

  // What a refresh of the panel says to the host: black and white says its settings once more, first. The picture
  // comes last.
  static std::string Refresh(std::uint32_t mode) {
    return (mode == mode::blackWhite ? "403 404:" : "404:") + std::to_string(mode) + " 403 40C paint";
  }

  // All that the host heard since the last call: "401/0:300" wParam 0 and dpi 300, "403" its record, "409/1" with
  // wParam 1, "403[3 1]" with frame command 3 for frame 1, "40C" without its text, "paint" the wish for a repaint.
  std::string Told() {
    std::string told;
    for (const std::string& line : Lines()) {
      const std::vector<Word> words = SplitWords(line);  // host 0x403 0 settings frame 3 1
      const bool isRepaint = words[0].text == "repaint";
      if (!isRepaint && words[0].text != "host") continue;
      const std::string code = isRepaint ? "paint" : words[1].text.substr(2);
      if (!told.empty()) told += ' ';
      told += code;
      if (isRepaint) continue;
      if (code == "401" || code == "405") told += '/' + words[2].text + ':' + words[3].text;
      if (code == "404") told += ':' + words[3].text;
      if (code == "40B" || (words[3].text == "settings" && words[2].text != "0")) told += '/' + words[2].text;
      if (words.size() > 4 && words[4].text == "frame") told += '[' + words[5].text + ' ' + words[6].text + ']';
    }
    Forget();
    return told;
  }

  static std::string Joined(std::initializer_list<std::string> parts) {
    std::string joined;
    for (const std::string& part : parts) {
      if (!joined.empty() && !part.empty()) joined += ' ';
      joined += part;
    }
    return joined;
  }

  // The keys of the profile with their values.
  Profile Stored() {
    Profile stored;
    for (const std::string& line : TheSession().TheFiles().Lines(ModuleFile::profile)) {
      const std::size_t equals = line.find('=');
      if (equals != std::string::npos) stored[line.substr(0, equals)] = line.substr(equals + 1);
    }
    return stored;
  }

  // The keys whose values aren't what they were, in one line.
  std::string Changed(const Profile& before) {
    std::string changed;
    const Profile after = Stored();
    for (const auto& [key, value] : after) {
      const auto was = before.find(key);
      if (was == before.end() || was->second != value) changed += (changed.empty() ? "" : " | ") + key;
    }
    for (const auto& [key, value] : before) {
      if (!after.contains(key)) changed += (changed.empty() ? "-" : " | -") + key;
    }
    return changed;
  }

  // Whether what `show` says of a control has this in it.
  testing::AssertionResult Shows(int id, const std::string& part) {
    const std::string seen = Seen(std::to_string(id)) + ' ';
    return seen.find(part) != std::string::npos ? testing::AssertionSuccess() : testing::AssertionFailure() << seen;
  }
  std::string Value(const std::string& field) { return Seen(field); }

  // A new process of the host, and no profile.
  void StartAfresh() {
    TheSession().Restart();
    TheSession().Outside().ThePlatform().files.Remove(TheSession().TheFiles().PathOf(ModuleFile::profile));
  }

  void OfferSources() {
    WriteKey(ModuleFile::options, "OPTION", "LLDriverInterface", "1");
    WriteKey(ModuleFile::options, "OPTION", "EnablePaperSource", "1");
  }

  // Saves the present settings under a name, as a person does.
  void SaveAs(const std::string& name) {
    WhenDialog(dialog::saveConfig, [this, name] {
      Person().Type({dialog::saveConfig, id104::nameEdit}, name);
      Person().Click({dialog::saveConfig, id::ok});
    });
    Person().Click(id::saveButton);
  }

  static constexpr const char* customRow = "自訂...";
};

}  // namespace set32

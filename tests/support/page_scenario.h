// A scenario at the General page: how the rows of the list stand in the profile, and what a person saves there.
#pragma once

#include <map>
#include <string>

#include "tests/support/scenario.h"

namespace set32 {

class PageScenario : public Scenario {
 protected:
  using Profile = std::map<std::string, std::string>;

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
};

}  // namespace set32

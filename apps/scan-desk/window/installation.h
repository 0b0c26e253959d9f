// What an installer lays for the library: its module's profile, and the options of the run time.
#pragma once

#include <string>

#include "apps/scan-desk/window/panel_choices.h"

namespace scan_desk {

// The desk lays files of its own, so that nothing that is installed on the machine has a say in what it shows, and
// none of it is changed. While this object lives the program's temporary folder is one of the desk's own, unless its
// files have names of their own.
class Installation {
 public:
  // `library` is the path of the library. With a `prefix` the files lie in the temporary folder that the program has,
  // and the module's profile gives them names that begin so: for a host that is a guest in another program.
  explicit Installation(const std::wstring& library, const std::wstring& prefix = {});
  ~Installation();
  Installation(const Installation&) = delete;
  Installation& operator=(const Installation&) = delete;

  // Before the panel is opened: the face is read at each opening, where it may search as the library is loaded. On
  // false the library must not be loaded, and `trouble` is a sentence that says why.
  bool Lay(const PanelChoices& choices, std::wstring& trouble) const;

 private:
  std::wstring moduleProfile_;
  std::wstring prefix_;
  std::wstring temp_;  // the folder that was the program's before
  std::wstring options_;
};

// The folder of the file that this code was linked into, with the separator at its end.
std::wstring ProgramFolder();

}  // namespace scan_desk

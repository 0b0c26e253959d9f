// A host, a person and an inspector around one panel: what scripts and scenario tests stand on.
//
// One session at a time in a process, since the module's two functions know one module.
#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>

#include "apps/driver/assembly.h"
#include "apps/driver/fake_host.h"
#include "apps/driver/inspector.h"
#include "apps/driver/module_files.h"
#include "apps/driver/scene.h"
#include "apps/driver/user.h"

namespace set32 {

// Hears what a session sees, at the moment that it happens, and acts inside dialogs and boxes. What it throws ends in
// the panel, which lets nothing through; so whoever acts inside takes what wasn't possible itself.
class SessionListener {
 public:
  virtual ~SessionListener() = default;
  // One line of what is seen: "host ...", "repaint", "beep", "box ...", "dialog ...".
  virtual void OnLine(const std::string& line) = 0;
  // The modal dialog runs; when this returns and it wasn't ended, it ends with cancel.
  virtual void OnModalOpened(Dialog& dialog) = 0;
  // It came to the screen; one that is shown once more isn't told again.
  virtual void OnModelessOpened(Dialog& dialog) = 0;
  virtual BoxAnswer OnBox(const ShownBox& box) = 0;
  // Inside a message that the host hears, after its line.
  virtual void OnHostMessage(std::uint32_t message) { (void)message; }
};

class Session {
 public:
  Session(const AssemblyOptions& options, SessionListener& listener);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  Assembly& Outside() { return *assembly_; }
  FakeHost& Host() { return *host_; }
  User& Person() { return *user_; }
  Inspector& Eye() { return *inspector_; }
  Scene& TheScene() { return scene_; }
  ModuleFiles& TheFiles() { return files_; }

  // The host calls uiFixSetting. Result: whether a page stands.
  bool Open();
  void Resize(Size client);
  // The host's process ends and starts again: the module is new, the files and all that the host holds stay, and
  // nothing is written by a page that still stood.
  void Restart();

  // A modal dialog that was ended, or a window that is gone or hidden.
  bool IsClosed(WindowHandle dialog) const;

 private:
  void Listen();
  void OnOpened(Dialog& dialog);
  void OnClosed(const Dialog& dialog, int result);

  SessionListener& listener_;
  std::unique_ptr<Assembly> assembly_;
  ModuleFiles files_;
  Scene scene_;
  std::unique_ptr<FakeHost> host_;
  std::unique_ptr<User> user_;
  std::unique_ptr<Inspector> inspector_;
  std::set<WindowHandle> onScreen_;  // modeless dialogs
};

}  // namespace set32

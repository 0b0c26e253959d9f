// The system's small services: facts, paths, registry, boxes.
#pragma once

#include "platform/boxes.h"
#include "platform/paths.h"
#include "platform/registry.h"
#include "platform/system.h"
#include "platform/threads.h"

namespace set32 {

class Win32System : public System {
 public:
  std::uint16_t DefaultLanguage() override;
  std::uint64_t Milliseconds() override;
  int SecondsOfHour() override;
  void Beep() override;
  std::string FromUtf8(std::string_view text) override;
  std::string ToUtf8(std::string_view text) override;
  std::size_t CharacterLength(std::string_view text) override;
};

class Win32Paths : public Paths {
 public:
  std::string ModuleFile() override;
  std::string TemporaryFolder() override;
};

class Win32Registry : public Registry {
 public:
  std::unique_ptr<RegistryKey> CurrentUser() override;
};

class Win32Boxes : public Boxes {
 public:
  explicit Win32Boxes(Threads& threads) : threads_(threads) {}
  BoxAnswer Show(WindowHandle owner, std::string_view text, std::string_view caption, std::uint32_t style) override;
  void ShowOnThread(WindowHandle owner, std::string_view text, std::string_view caption,
                    std::uint32_t style) override;

 private:
  Threads& threads_;
};

}  // namespace set32

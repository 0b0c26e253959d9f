// Interfaces that pass everything on, for fakes that change one thing. The target must outlive them.
#pragma once

#include "platform/files.h"
#include "platform/sockets.h"
#include "platform/system.h"

namespace set32 {

class ForwardingFiles : public Files {
 public:
  explicit ForwardingFiles(Files& target) : target_(target) {}
  Presence PresenceOf(std::string_view path) override { return target_.PresenceOf(path); }
  std::optional<std::string> PlaceToReplace(std::string_view path) override { return target_.PlaceToReplace(path); }
  std::vector<std::string> EndingsBeside(std::string_view path) override { return target_.EndingsBeside(path); }
  std::unique_ptr<File> OpenToRead(std::string_view path) override { return target_.OpenToRead(path); }
  std::unique_ptr<File> OpenToWrite(std::string_view path) override { return target_.OpenToWrite(path); }
  bool Replace(std::string_view from, std::string_view to) override { return target_.Replace(from, to); }
  bool Remove(std::string_view path) override { return target_.Remove(path); }
  std::unique_ptr<FileLock> Lock(std::string_view path, int milliseconds) override {
    return target_.Lock(path, milliseconds);
  }

 private:
  Files& target_;
};

class ForwardingSockets : public Sockets {
 public:
  explicit ForwardingSockets(Sockets& target) : target_(target) {}
  bool Start(std::uint16_t version) override { return target_.Start(version); }
  void Stop() override { target_.Stop(); }
  std::unique_ptr<DatagramSocket> Open() override { return target_.Open(); }
  bool HostName(std::string& name) override { return target_.HostName(name); }
  bool LookUp(std::string_view name) override { return target_.LookUp(name); }
  void Sleep(int milliseconds) override { target_.Sleep(milliseconds); }

 private:
  Sockets& target_;
};

class ForwardingSystem : public System {
 public:
  explicit ForwardingSystem(System& target) : target_(target) {}
  std::uint16_t DefaultLanguage() override { return target_.DefaultLanguage(); }
  std::uint64_t Milliseconds() override { return target_.Milliseconds(); }
  int SecondsOfHour() override { return target_.SecondsOfHour(); }
  void Beep() override { target_.Beep(); }
  std::string FromUtf8(std::string_view text) override { return target_.FromUtf8(text); }
  std::string ToUtf8(std::string_view text) override { return target_.ToUtf8(text); }
  std::size_t CharacterLength(std::string_view text) override { return target_.CharacterLength(text); }

 private:
  System& target_;
};

}  // namespace set32

// One file of options, read key by key. Short-lived; nothing is kept of the file, and a missing file, section or key
// reads as its default. Text is cut at the start of a character. The calls and the system must outlive it. Any
// thread.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "boundary/option_keys.h"
#include "platform/profile_calls.h"
#include "platform/system.h"

namespace set32 {

class OptionFile {
 public:
  OptionFile(ProfileCalls& calls, System& system, std::string path)
      : calls_(calls), system_(system), path_(std::move(path)) {}

  std::int32_t Read(const IntegerKey& key) const;
  std::string Read(const TextKey& key) const;
  // False when it couldn't be stored; the file is then as it was.
  bool Write(const TextKey& key, const std::string& value) const;

 private:
  ProfileCalls& calls_;
  System& system_;
  std::string path_;
};

}  // namespace set32

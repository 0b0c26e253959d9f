// What the contract of the profile calls is tested on: the engine over the system's files, and, where the system has
// profile calls of its own, those beside it.
#pragma once

#include <memory>
#include <ostream>
#include <vector>

#include "platform/files.h"
#include "platform/profile_calls.h"

namespace set32 {

// The files of the system that the tests run on.
Files& SystemFiles();

struct ProfilePeer {
  const char* name;
  std::unique_ptr<ProfileCalls> (*make)();
};

inline void PrintTo(const ProfilePeer& peer, std::ostream* out) {
  *out << peer.name;
}

std::vector<ProfilePeer> ProfilePeers();

}  // namespace set32

#include "tests/support/profile_peer.h"

#include "platform/posix/posix_files.h"
#include "platform/profile_engine.h"

namespace set32 {

Files& SystemFiles() {
  static PosixFiles files;
  return files;
}

std::vector<ProfilePeer> ProfilePeers() {
  return {
      {"Engine", []() -> std::unique_ptr<ProfileCalls> { return std::make_unique<ProfileEngine>(SystemFiles()); }}};
}

}  // namespace set32

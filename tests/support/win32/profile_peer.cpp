#include "tests/support/profile_peer.h"

#include "platform/profile_engine.h"
#include "platform/win32/win32_files.h"
#include "platform/win32/windows_api.h"

namespace set32 {

namespace {

// The system's own calls of these names.
class SystemProfileCalls : public ProfileCalls {
 public:
  std::size_t GetString(const char* section, const char* key, const char* fallback, std::span<char> out,
                        const char* file) override {
    return GetPrivateProfileStringA(section, key, fallback, out.data(), static_cast<DWORD>(out.size()), file);
  }
  std::uint32_t GetInteger(const char* section, const char* key, std::int32_t fallback, const char* file) override {
    return GetPrivateProfileIntA(section, key, fallback, file);
  }
  std::size_t GetSection(const char* section, std::span<char> out, const char* file) override {
    return GetPrivateProfileSectionA(section, out.data(), static_cast<DWORD>(out.size()), file);
  }
  bool WriteString(const char* section, const char* key, const char* value, const char* file) override {
    return WritePrivateProfileStringA(section, key, value, file) != FALSE;
  }
  // No call of the system's does this.
  bool ReplaceFile(const char* file, std::span<const char> content) override {
    return ProfileEngine(SystemFiles()).ReplaceFile(file, content);
  }
  bool CreateIfAbsent(const char* file, std::span<const char> content) override {
    return ProfileEngine(SystemFiles()).CreateIfAbsent(file, content);
  }
};

}  // namespace

Files& SystemFiles() {
  static Win32Files files;
  return files;
}

std::vector<ProfilePeer> ProfilePeers() {
  return {
      {"Engine", []() -> std::unique_ptr<ProfileCalls> { return std::make_unique<ProfileEngine>(SystemFiles()); }},
      {"System", []() -> std::unique_ptr<ProfileCalls> { return std::make_unique<SystemProfileCalls>(); }}};
}

}  // namespace set32

// The current user's registry, as far as one older value needs it. Paths are separated by '\'. Results are the
// registry's own numbers. Host's thread only.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace set32 {

namespace registry_result {
inline constexpr std::uint32_t success = 0;
inline constexpr std::uint32_t fileNotFound = 2;
inline constexpr std::uint32_t accessDenied = 5;
inline constexpr std::uint32_t noMoreItems = 259;
inline constexpr std::uint32_t badKey = 1010;
}  // namespace registry_result

enum class RegistryAccess { read, enumerateAndDelete };

// An open key; releasing it closes it.
class RegistryKey {
 public:
  virtual ~RegistryKey() = default;
  // A string value, at most `maxBytes` bytes of it; empty and a failure where there is none.
  virtual std::uint32_t ReadString(std::string_view name, std::size_t maxBytes, std::string& value) = 0;
  // Name of the sub-key at this place; noMoreItems past the last.
  virtual std::uint32_t SubKeyName(std::uint32_t index, std::string& name) = 0;
  // A sub-key of this one; null with the result told.
  virtual std::unique_ptr<RegistryKey> Open(std::string_view path, RegistryAccess access, std::uint32_t& result) = 0;
  // Deletes a sub-key that has none of its own.
  virtual std::uint32_t DeleteSubKey(std::string_view path) = 0;
};

class Registry {
 public:
  virtual ~Registry() = default;
  // The root of the current user's keys; never null.
  virtual std::unique_ptr<RegistryKey> CurrentUser() = 0;
};

}  // namespace set32

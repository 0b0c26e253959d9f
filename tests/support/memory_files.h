// Files in memory, for tests that care about bytes and not about disks.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/files.h"

namespace set32 {

class MemoryFiles : public Files {
 public:
  std::map<std::string, std::string, std::less<>> content;  // by path
  std::size_t diskLeft = SIZE_MAX;                          // bytes that can still be written
  int locks = 0;                                            // how often one was asked for

  Presence PresenceOf(std::string_view path) override {
    return content.contains(path) ? Presence::present : Presence::absent;
  }
  std::optional<std::string> PlaceToReplace(std::string_view path) override { return std::string(path); }
  std::vector<std::string> EndingsBeside(std::string_view path) override {
    std::vector<std::string> endings;
    for (auto at = content.upper_bound(path); at != content.end() && at->first.starts_with(path); ++at) {
      endings.push_back(at->first.substr(path.size()));
    }
    return endings;
  }
  std::unique_ptr<File> OpenToRead(std::string_view path) override {
    const auto found = content.find(path);
    return found != content.end() ? std::make_unique<Open>(*this, found->second) : nullptr;
  }
  std::unique_ptr<File> OpenToWrite(std::string_view path) override {
    std::string& file = content[std::string(path)];
    file.clear();
    return std::make_unique<Open>(*this, file);
  }
  bool Replace(std::string_view from, std::string_view to) override {
    const auto found = content.find(from);
    if (found == content.end()) return false;
    std::string moved = std::move(found->second);
    content.erase(found);
    content.insert_or_assign(std::string(to), std::move(moved));
    return true;
  }
  bool Remove(std::string_view path) override { return content.erase(std::string(path)) != 0; }
  std::unique_ptr<FileLock> Lock(std::string_view, int) override {
    ++locks;
    return std::make_unique<FileLock>();
  }

 private:
  struct Open : File {
    Open(MemoryFiles& owner, std::string& bytes) : files(owner), file(bytes) {}
    std::size_t Read(std::span<std::uint8_t> into) override {
      const std::size_t size = std::min(into.size(), file.size() - at);
      std::copy_n(file.begin() + static_cast<std::ptrdiff_t>(at), size, into.begin());
      at += size;
      return size;
    }
    std::size_t Write(std::span<const std::uint8_t> bytes) override {
      const std::size_t size = std::min(bytes.size(), files.diskLeft);
      file.append(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
      files.diskLeft -= size;
      return size;
    }
    bool Flush() override { return true; }
    std::uint64_t Size() override { return file.size(); }
    MemoryFiles& files;
    std::string& file;
    std::size_t at = 0;
  };
};

}  // namespace set32

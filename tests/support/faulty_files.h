// Files of which one operation fails, counted from the start, or all from there on: each step of a longer piece of
// work can be broken.
#pragma once

#include <utility>

#include "apps/stage/forwarding.h"

namespace set32 {

class FaultyFiles : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;

  // The operation of this number fails, counted from 0; none with a negative one. A write that fails stores half.
  void FailAt(int operation) { left_ = operation, goesOn_ = false; }
  void FailFrom(int operation) { left_ = operation, goesOn_ = true; }
  bool HasFailed() const { return failed_; }

  Presence PresenceOf(std::string_view path) override {
    return Fails() ? Presence::unknown : ForwardingFiles::PresenceOf(path);
  }
  std::optional<std::string> PlaceToReplace(std::string_view path) override {
    return Fails() ? std::nullopt : ForwardingFiles::PlaceToReplace(path);
  }
  std::unique_ptr<File> OpenToRead(std::string_view path) override {
    return Fails() ? nullptr : Wrap(ForwardingFiles::OpenToRead(path));
  }
  std::unique_ptr<File> OpenToWrite(std::string_view path) override {
    return Fails() ? nullptr : Wrap(ForwardingFiles::OpenToWrite(path));
  }
  bool Replace(std::string_view from, std::string_view to) override {
    return !Fails() && ForwardingFiles::Replace(from, to);
  }
  bool Remove(std::string_view path) override { return !Fails() && ForwardingFiles::Remove(path); }
  std::unique_ptr<FileLock> Lock(std::string_view path, int milliseconds) override {
    return Fails() ? nullptr : ForwardingFiles::Lock(path, milliseconds);
  }

 private:
  class FaultyFile : public File {
   public:
    FaultyFile(FaultyFiles& owner, std::unique_ptr<File> target) : owner_(owner), target_(std::move(target)) {}
    std::size_t Read(std::span<std::uint8_t> into) override {
      return target_->Read(owner_.Fails() ? into.first(into.size() / 2) : into);
    }
    std::size_t Write(std::span<const std::uint8_t> bytes) override {
      return target_->Write(owner_.Fails() ? bytes.first(bytes.size() / 2) : bytes);
    }
    bool Flush() override { return !owner_.Fails() && target_->Flush(); }
    std::uint64_t Size() override { return target_->Size(); }

   private:
    FaultyFiles& owner_;
    std::unique_ptr<File> target_;
  };

  bool Fails() {
    const bool fails = left_ == 0;
    if (left_ > 0 || !goesOn_) --left_;
    failed_ = failed_ || fails;
    return fails;
  }

  std::unique_ptr<File> Wrap(std::unique_ptr<File> file) {
    if (!file) return nullptr;
    return std::make_unique<FaultyFile>(*this, std::move(file));
  }

  int left_ = -1;
  bool goesOn_ = false;
  bool failed_ = false;
};

}  // namespace set32

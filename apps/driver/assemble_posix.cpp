// Windows in memory over the system's files and threads.
#ifndef _WIN32
#include "apps/driver/assembly.h"
#include "apps/stage/forwarding.h"
#include "apps/stage/model/model_windows.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_sockets.h"
#include "platform/posix/posix_threads.h"
#include "platform/posix/posix_usb.h"
#include "platform/profile_engine.h"

namespace set32 {

namespace {

// Files of a walk that nobody needs after a power failure.
class QuickFiles : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  std::unique_ptr<File> OpenToWrite(std::string_view path) override {
    auto file = ForwardingFiles::OpenToWrite(path);
    return file == nullptr ? nullptr : std::make_unique<QuickFile>(std::move(file));
  }

 private:
  class QuickFile : public File {
   public:
    explicit QuickFile(std::unique_ptr<File> file) : file_(std::move(file)) {}
    std::size_t Read(std::span<std::uint8_t> into) override { return file_->Read(into); }
    std::size_t Write(std::span<const std::uint8_t> bytes) override { return file_->Write(bytes); }
    bool Flush() override { return true; }
    std::uint64_t Size() override { return file_->Size(); }

   private:
    std::unique_ptr<File> file_;
  };
};

class PosixAssembly : public Assembly {
 public:
  explicit PosixAssembly(const AssemblyOptions& options)
      : Assembly(options),
        files_(options.files != nullptr ? *options.files : systemFiles_),
        profiles_(options.quickFiles ? quickFiles_ : files_),
        platform_{scene_.windows,
                  scene_.boxes,
                  files_,
                  paths_,
                  profiles_,
                  system_,
                  options.realNetwork ? static_cast<Sockets&>(realSockets_) : network_,
                  options.realNetwork ? static_cast<UsbDevices&>(realUsb_) : usb_,
                  registry_,
                  scene_.clipboard,
                  threads_} {}

  Platform& ThePlatform() override { return platform_; }
  WindowWatch& Watch() override { return scene_.windows; }
  Input& TheInput() override { return scene_.input; }
  HeadlessBoxes& TheBoxes() override { return scene_.boxes; }

 private:
  ModelWindows scene_;
  PosixFiles systemFiles_;
  Files& files_;
  QuickFiles quickFiles_{files_};
  ProfileEngine profiles_;
  PosixSockets realSockets_;
  PosixUsb realUsb_;
  PosixThreads threads_;
  Platform platform_;
};

}  // namespace

std::unique_ptr<Assembly> Assemble(const AssemblyOptions& options) {
  return std::make_unique<PosixAssembly>(options);
}

}  // namespace set32
#endif

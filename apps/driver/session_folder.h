// The folder that a session works in.
#pragma once

#include <string>

namespace set32 {

// A given folder, or a fresh one that goes when the object does; module, temp and registry inside are made when
// missing. Throws NotPossible when they can't be.
class SessionFolder {
 public:
  explicit SessionFolder(const std::string& given = {});
  ~SessionFolder();
  SessionFolder(const SessionFolder&) = delete;
  SessionFolder& operator=(const SessionFolder&) = delete;

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
  bool fresh_;
};

}  // namespace set32

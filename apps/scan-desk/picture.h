// The preview picture: one object for the program's whole life, refilled when a person opens another file, so that
// the pointer that the panel keeps stays good.
#pragma once

#include <string>

#include "dib.h"
#include "platform/geometry.h"

namespace scan_desk {

class Picture {
 public:
  // White paper, A4 at 100 dots an inch.
  void MakeBlank();
  // A bitmap file of any depth that the system can read. On false the picture is as it was and `trouble` says why.
  bool Open(const std::wstring& path, std::wstring& trouble);

  set32::CDib& Dib() { return dib_; }
  const set32::CDib& Dib() const { return dib_; }
  set32::Size Area() const;
  double DotsPerInch() const { return dotsPerInch_; }

 private:
  bool Take(const std::string& bytes);

  set32::CDib dib_;
  double dotsPerInch_ = 100;
};

}  // namespace scan_desk

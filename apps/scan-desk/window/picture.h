// The preview picture: one object for the program's whole life, refilled when a person opens another file, so that
// the pointer that the panel keeps stays good.
#pragma once

#include <string>

#include "platform/geometry.h"
#include "set32/dib.h"

namespace scan_desk {

class Picture {
 public:
  // White paper, A4 at 100 dots an inch. False when memory is short.
  bool MakeBlank();
  // Any file that the system can decode. On false the picture is as it was and `trouble` is a sentence that says why.
  bool Open(const std::wstring& path, std::wstring& trouble);

  set32::CDib& Dib() { return dib_; }
  const set32::CDib& Dib() const { return dib_; }
  set32::Size Area() const;
  double DotsPerInch() const;

 private:
  void TakeOver(set32::CDib& from);

  set32::CDib dib_;
};

}  // namespace scan_desk

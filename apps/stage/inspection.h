// What scripts and tests ask of controls and the panel never does. A control of the stage answers to these beside its
// own interface, so that a cast finds them; a control that isn't there has none.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/control.h"
#include "platform/picture.h"

namespace set32 {

class ShowsPicture {
 public:
  virtual ~ShowsPicture() = default;
  // Name of the picture on show (of a button's the first), empty for none.
  virtual std::string PictureName() const = 0;
};

class DropsList {
 public:
  virtual ~DropsList() = default;
  // Whether the list was dropped at least once.
  virtual bool WasDropped() const = 0;
};

class NotesRange {
 public:
  virtual ~NotesRange() = default;
  // What Edit::NoteRange told last.
  virtual std::optional<NumberRange> NotedRange() const = 0;
};

inline constexpr std::uint8_t dottedAlpha = 254;

class KeepsDrawing {
 public:
  virtual ~KeepsDrawing() = default;
  // The picture area as it was last drawn, rows top-down; empty when it never was. Every pixel is opaque, one that a
  // dotted pen laid has the alpha `dottedAlpha`.
  virtual Picture Drawing() const = 0;
};

class TellsTips {
 public:
  virtual ~TellsTips() = default;
  // A control's tips in the order in which they were added, empty behind the last.
  virtual std::string TextAt(int controlId, int index) const = 0;
};

// The texts of a dialog's tips, as they were added.
class TipTexts {
 public:
  void Add(int controlId, std::string_view text) { texts_.emplace_back(controlId, text); }
  std::string At(int controlId, int index) const {
    for (const auto& [id, text] : texts_) {
      if (id == controlId && index-- == 0) return text;
    }
    return {};
  }

 private:
  std::vector<std::pair<int, std::string>> texts_;
};

}  // namespace set32

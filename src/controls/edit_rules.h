// The rules of the numeric edits as functions of a text and a selection: no control, no window.
//
// Positions are bytes at the starts of characters. Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace set32 {

// Whether a text is a well-written decimal number: not empty, of digits, blanks and points, and with no second point
// unless the first one is the text's first character.
bool IsDecimalText(std::string_view text);

// A whole number that repairs itself after each change.
struct IntEditRules {
  std::int32_t minValue = 0;
  std::int32_t maxValue = 100;
  std::int32_t lastGood = 0;  // the text's value the last time that it passed

  // Limits are taken as they come; the lower one is the first good value.
  void SetRange(std::int32_t low, std::int32_t high);

  // Judges a text after a change. Result: the text to show in its place, none when it may stand.
  std::optional<std::string> Repair(std::string_view text);

  // A text that the program shows stands as it is: one that passes is the last good one from now on, any other leaves
  // that as it was.
  void Note(std::string_view text);
};

// The text of an edit with its selection; bytes, start <= end <= text.size().
struct EditState {
  std::string text;
  std::size_t start = 0;
  std::size_t end = 0;

  // The text after the selection gave way to another one.
  std::string With(std::string_view replacement) const;
};

// What becomes of a character or a paste. Where it is refused for what the text would be, the selection goes all the
// same; a character that may not stand in the text at all leaves the selection alone.
enum class EditVerdict { foreign, refused, taken };

// A decimal number that refuses what would spoil it.
struct RealEditRules {
  // Longest text that typing or pasting may leave, in bytes; owners read no more.
  static constexpr std::size_t longestText = 255;

  double minValue = 0.0;  // below 0 a minus sign is allowed
  double maxValue = 1000.0;

  // The smaller becomes the lower limit.
  void SetRange(double a, double b);

  // Whether every character of a text may stand in the edit.
  bool Allows(std::string_view text) const;

  EditVerdict Judge(const EditState& before, std::string_view added) const;

 private:
  // One point, one minus sign, a value not above the highest. The lowest value is the owner's to test: 0 must stand
  // before 0.5 can.
  bool Accepts(std::string_view text) const;
};

}  // namespace set32

// Bitmap files: what CDib::Read and CDib::Write work on.
//
// Read takes files of one plane with a header of 40 bytes or more, whatever bytes they hold otherwise:
// - A pixel offset below 54, a header below 40 bytes, no width or height, or a depth of 0 or above 32 bits: said to
//   be invalid. So is a picture whose claimed size is out of all proportion to the file (see MostClaimed), since
//   memory isn't given on the word of a header.
// - A file that ends early is held all the same; what is missing of it stays white, or 0 in the colour table.
// - A larger header is taken as one of 40 bytes, with the colour table moved to its place behind it.
// - The size of rows that aren't compressed follows from width, height and depth; the header's word for it is put
//   right in memory, as it is where the header says nothing.
// - Rows stored top-down are turned, and the height is then positive. Compressed pixels are held as they are.
// - A colour count beyond the table that the file holds is cut.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include <set32/dib.h>

namespace set32 {

// A file that bytes are read from or written to, one behind the other.
class DibFile {
 public:
  // Thrown by a file that fails; the operations of CDib catch this and nothing else.
  struct Failure {};

  virtual ~DibFile() = default;
  // Result: how many bytes were read; fewer than asked for at the end of the file.
  virtual std::size_t Read(std::span<std::uint8_t> into) = 0;
  virtual void Write(std::span<const std::uint8_t> bytes) = 0;
  // How many bytes the file still holds behind the last one that was read.
  virtual std::uint64_t Remaining() = 0;
};

// Where a failure is told, as a message box or in another way.
class DibTrouble {
 public:
  virtual ~DibTrouble() = default;
  virtual void Say(const char* text) = 0;
};

// The most bytes that a header may claim for its picture when the file holds `held` bytes of it: a picture cut short
// in transit passes, a few bytes that claim gigabytes don't.
constexpr std::uint64_t MostClaimed(std::uint64_t held) {
  return (std::uint64_t{1} << 20) + 16 * held;
}

// A file's bytes in memory. Keeps the span, not the bytes.
class DibBytes final : public DibFile {
 public:
  explicit DibBytes(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}
  std::size_t Read(std::span<std::uint8_t> into) override;
  void Write(std::span<const std::uint8_t>) override { throw Failure{}; }
  std::uint64_t Remaining() override { return bytes_.size(); }

 private:
  std::span<const std::uint8_t> bytes_;
};

// A bitmap file's bytes into a picture: CDib::Read over memory.
bool LoadBmp(CDib& dib, std::span<const std::uint8_t> bytes, DibTrouble& trouble);

}  // namespace set32

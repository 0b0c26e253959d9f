#include "apps/driver/preview_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <vector>

#include "adjust/picture_view.h"
#include "apps/driver/not_possible.h"
#include "set32/dib_file.h"

namespace set32 {

namespace {

constexpr int bytesAPixel = 3;
constexpr double inchesAMetre = 1 / 0.0254;

// Says what is wrong with a file in a message box, as the picture object does in any host.
class BoxTrouble : public DibTrouble {
 public:
  explicit BoxTrouble(Boxes& boxes) : boxes_(boxes) {}
  void Say(const char* text) override { boxes_.Show(0, text, "scan-host", box_style::ok | box_style::exclamation); }

 private:
  Boxes& boxes_;
};

std::optional<std::vector<std::uint8_t>> WholeFile(Files& files, const std::string& path) {
  const auto file = files.OpenToRead(path);
  if (file == nullptr) return {};
  std::vector<std::uint8_t> content;
  std::array<std::uint8_t, 65536> piece;
  while (const std::size_t size = file->Read(piece))
    content.insert(content.end(), piece.begin(), piece.begin() + size);
  return content;
}

std::uint32_t Crc32(std::uint32_t crc, const std::uint8_t* bytes, std::size_t size) {
  static const std::array<std::uint32_t, 256> table = [] {
    std::array<std::uint32_t, 256> entries;
    for (std::uint32_t i = 0; i < entries.size(); ++i) {
      std::uint32_t value = i;
      for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) != 0 ? 0xEDB88320U : 0U);
      entries[i] = value;
    }
    return entries;
  }();
  for (std::size_t i = 0; i < size; ++i) crc = table[(crc ^ bytes[i]) & 0xFF] ^ (crc >> 8);
  return crc;
}

Colour ColourAt(const std::uint8_t* row, int x) {
  const std::uint8_t* pixel = row + static_cast<std::size_t>(x) * bytesAPixel;
  return {pixel[2], pixel[1], pixel[0]};
}

// Until the panel's first refresh the picture is shown as it was scanned.
void ShowSource(CDib& dib) {
  if (dib.sourcePixels == nullptr || dib.displayPixels == nullptr) return;
  std::copy_n(dib.sourcePixels, dib.imageSize, dib.displayPixels);
}

}  // namespace

void PreviewPicture::MakeBlank(Size size, int dpi) {
  constexpr int longest = 20000;
  constexpr int finest = 100000;
  if (size.width < 1 || size.width > longest || size.height < 1 || size.height > longest || dpi < 1 || dpi > finest) {
    throw NotPossible("no preview has this size");
  }
  dib_.Empty();
  auto block = std::make_unique<std::uint8_t[]>(sizeof(BitmapInfoHeader));
  auto* header = std::construct_at(reinterpret_cast<BitmapInfoHeader*>(block.release()));
  header->headerSize = sizeof(BitmapInfoHeader);
  header->width = size.width;
  header->height = size.height;
  header->planes = 1;
  header->bitCount = bytesAPixel * 8;
  header->pixelsPerMetreX = header->pixelsPerMetreY = static_cast<std::int32_t>(std::lround(dpi * inchesAMetre));
  dib_.header = header;
  dib_.headerOwner = header_owner::object;
  dib_.ComputeMetrics();
  if (!dib_.AllocatePixels(true)) throw NotPossible("no memory for this preview");
  ShowSource(dib_);
  given_ = true;
}

void PreviewPicture::ReadFile(Files& files, Boxes& boxes, const std::string& path) {
  const auto content = WholeFile(files, path);
  if (!content) throw NotPossible("can't open " + path);
  BoxTrouble trouble(boxes);
  given_ = LoadBmp(dib_, *content, trouble);
  if (!given_) throw NotPossible("can't read " + path);
  ShowSource(dib_);
}

std::optional<PreviewPicture::Pixel> PreviewPicture::PixelAt(int x, int y) const {
  const auto view = given_ ? ViewOf(dib_) : std::nullopt;
  if (!view || x < 0 || x >= view->width || y < 0 || y >= view->height) return {};
  const int row = view->height - 1 - y;
  return Pixel{ColourAt(view->SourceRow(row), x), ColourAt(view->DisplayRow(row), x)};
}

std::optional<std::uint32_t> PreviewPicture::DisplaySum() const {
  const auto view = given_ ? ViewOf(dib_) : std::nullopt;
  if (!view) return {};
  std::uint32_t crc = 0xFFFFFFFFU;
  for (int row = 0; row < view->height; ++row) {
    crc = Crc32(crc, view->DisplayRow(row), static_cast<std::size_t>(view->width) * bytesAPixel);
  }
  return ~crc;
}

}  // namespace set32

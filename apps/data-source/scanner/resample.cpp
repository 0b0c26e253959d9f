#include "apps/data-source/scanner/resample.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace data_source {

namespace {

constexpr std::size_t bands = 3;
constexpr float white = 255;

// The source pixels that one scanned pixel covers, with their shares of it.
struct Cover {
  int first = 0;
  std::vector<float> shares;
};

// A pixel smaller than the page's covers as much as one of the page's around its middle, which blends neighbours.
std::vector<Cover> CoversOf(double start, double step, int count) {
  std::vector<Cover> covers(static_cast<std::size_t>(count));
  const double size = std::max(step, 1.0);
  for (int i = 0; i < count; ++i) {
    const double low = start + (i + 0.5) * step - size / 2, high = low + size;
    Cover& cover = covers[static_cast<std::size_t>(i)];
    cover.first = static_cast<int>(std::floor(low));
    for (int at = cover.first; at < high; ++at) {
      const double share = (std::min(at + 1.0, high) - std::max<double>(at, low)) / size;
      cover.shares.push_back(static_cast<float>(share));
    }
  }
  return covers;
}

class Rows {
 public:
  Rows(const PagePicture& page, std::vector<Cover> across) : page_(page), across_(std::move(across)) {}

  // One row of the page across the scanned width. The last few are kept, since neighbours share them.
  const std::vector<float>& At(int row) {
    Kept& kept = kept_[static_cast<std::size_t>(row) % std::size(kept_)];
    if (kept.row != row) {
      kept.row = row;
      Fill(row, kept.levels);
    }
    return kept.levels;
  }

 private:
  struct Kept {
    int row = -1;
    std::vector<float> levels;
  };

  void Fill(int row, std::vector<float>& levels) const {
    levels.assign(across_.size() * bands, 0);
    const std::uint8_t* pixels =
        page_.pixels.data() + bands * static_cast<std::size_t>(page_.width) * static_cast<std::size_t>(row);
    float* into = levels.data();
    for (const Cover& cover : across_) {
      int at = cover.first;
      for (const float share : cover.shares) {
        const bool lies = at >= 0 && at < page_.width;
        const std::uint8_t* pixel = lies ? pixels + bands * static_cast<std::size_t>(at) : nullptr;
        for (std::size_t band = 0; band < bands; ++band)
          into[band] += share * (lies ? static_cast<float>(pixel[band]) : white);
        ++at;
      }
      into += bands;
    }
  }

  const PagePicture& page_;
  std::vector<Cover> across_;
  Kept kept_[4];
};

}  // namespace

void Resample(const PagePicture& page, const PageGrid& grid, int width, int height,
              const std::function<void(int, std::span<const float>)>& take) {
  const std::vector<Cover> down = CoversOf(grid.top, grid.stepY, height);
  Rows rows(page, CoversOf(grid.left, grid.stepX, width));
  std::vector<float> levels(static_cast<std::size_t>(width) * bands);
  for (int y = 0; y < height; ++y) {
    const Cover& cover = down[static_cast<std::size_t>(y)];
    std::fill(levels.begin(), levels.end(), 0.0F);
    int row = cover.first;
    for (const float share : cover.shares) {
      if (row >= 0 && row < page.height) {
        const std::vector<float>& from = rows.At(row);
        for (std::size_t i = 0; i < levels.size(); ++i) levels[i] += share * from[i];
      } else {
        for (float& level : levels) level += share * white;
      }
      ++row;
    }
    take(y, levels);
  }
}

}  // namespace data_source

// The work on pixels beside memcpy of the same bytes, one thread, at the size of a full page and at that of a
// preview. OpenCV stands beside where the build found it.
#include <array>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "adjust/histogram.h"
#include "adjust/own_image_library.h"
#include "adjust/pixel_roads.h"
#include "adjust/preview.h"
#include "apps/stage/model/headless_windows.h"
#include "bench/measured_table.h"

#if SET32_HAVE_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace {

using namespace set32;

using Work = std::function<void(Page&)>;
using Rows = std::vector<Measured>;

void Add(Rows& rows, std::string work, std::string road, double budget, const Work& run) {
  rows.push_back(
      {std::move(work), std::move(road), budget, [run](Page& page) { return [run, &page] { run(page); }; }});
}

// What a work may cost on a road, from the portable one to the fastest.
using Budgets = std::array<double, 4>;

struct RoadWork {
  const char* name;
  Budgets budgets;
  Work (*on)(const PixelRoad& road);
};

template <typename RowWork>
Work RowByRow(RowWork work) {
  return [work](Page& page) {
    for (int row = 0; row < page.height; ++row) work(page, row, static_cast<std::size_t>(page.width));
  };
}

Work Toned(const PixelRoad& road, bool oneTable) {
  return [&road, oneTable](Page& page) {
    const CDib& dib = page.dib;
    const BandTables bands = TablesOf(dib);
    const PixelTables tables(oneTable ? BandTables{bands.green, bands.green, bands.green} : bands);
    ToneRows(*ViewOf(dib), tables, road);
  };
}

Work ThreeTables(const PixelRoad& road) {
  return Toned(road, false);
}

Work OneTable(const PixelRoad& road) {
  return Toned(road, true);
}

Work Reduced(const PixelRoad& road) {
  return RowByRow([&road](Page& page, int row, std::size_t width) {
    road.levels(page.DisplayRow(row), page.DisplayRow(row), width, page.dib.toneGreen);
  });
}

Work Filtered(const PixelRoad& road, std::int32_t sharpness, std::int32_t saturation, std::int32_t hue) {
  return [=, &road](Page& page) {
    OwnImageLibrary library(road);
    const auto bitmap = library.Create(page.width, page.height, 24);
    bitmap->TakeOver(*ViewOf(page.dib));
    bitmap->Sharpen(sharpness);
    bitmap->ChangeSaturation(saturation);
    bitmap->TurnHue(hue);
    bitmap->GiveBack();
  };
}

Work Sharpened(const PixelRoad& road) {
  return Filtered(road, 500, 0, 0);
}

Work Coloured(const PixelRoad& road) {
  return Filtered(road, 0, 300, 40);
}

constexpr RoadWork roadWorks[] = {
    {"three tone tables", {5.0, 5.0, 2.5, 1.7}, ThreeTables},
    {"one table for all bands", {5.0, 5.0, 1.8, 1.7}, OneTable},
    {"reduction to gray or black and white", {1.5, 1.5, 1.5, 1.5}, Reduced},
    {"sharpen", {4.0, 4.0, 2.5, 2.5}, Sharpened},
    {"saturation and hue together", {3.0, 3.0, 2.0, 2.0}, Coloured},
};

// A whole refresh: tables rebuilt, pixels recomputed, the host asked to repaint.
struct Refresh {
  const char* name;
  Budgets budgets;
  std::uint32_t mode;
  std::int32_t sharpness;
  std::int32_t saturation;
  std::int32_t hue;
  bool oneGamma;
};

constexpr Refresh refreshes[] = {
    {"refresh: colour, one gamma", {5.0, 5.0, 2.5, 2.5}, mode::colour, 0, 0, 0, true},
    {"refresh: colour, three gammas", {5.0, 5.0, 2.5, 2.5}, mode::colour, 0, 0, 0, false},
    {"refresh: gray", {3.0, 3.0, 3.0, 3.0}, mode::gray, 0, 0, 0, true},
    {"refresh: black and white", {3.0, 3.0, 3.0, 3.0}, mode::blackWhite, 0, 0, 0, true},
    {"refresh: gray, sharpened", {10.0, 10.0, 10.0, 10.0}, mode::gray, 50, 0, 0, true},
    {"refresh: every stage, one gamma", {10.0, 10.0, 4.0, 4.0}, mode::colour, 50, 30, 40, true},
    {"refresh: every stage, three gammas", {10.0, 10.0, 4.0, 4.0}, mode::colour, 50, 30, 40, false},
};

Work Refreshed(const Refresh& refresh, const PixelRoad& road) {
  return [&refresh, &road](Page& page) {
    static HeadlessWindows windows;
    static HostLink host(windows);
    OwnImageLibrary library(road);
    PreviewRenderer renderer(sheetPreview, library, road);
    ScanSettings settings{};
    settings.mode = refresh.mode;
    settings.sharpness = refresh.sharpness;
    settings.saturation = refresh.saturation;
    settings.hue = refresh.hue;
    if (refresh.oneGamma) {
      page.SetGammas(1.2, 1.2, 1.2);
    } else {
      page.SetGammas(1.1, 1.2, 1.3);
    }
    renderer.Refresh(settings, &page.dib, 128, host, true);
  };
}

#if SET32_HAVE_OPENCV
cv::Mat Over(Page& page, std::vector<std::uint8_t>& pixels) {
  return {page.height, page.width, CV_8UC3, pixels.data(), page.dib.stride};
}

void AddPeers(Rows& rows) {
  cv::setNumThreads(1);
  Add(rows, "three tone tables", "OpenCV LUT", noBudget, [](Page& page) {
    cv::Mat table(1, 256, CV_8UC3);
    for (int i = 0; i < 256; ++i) {
      table.at<cv::Vec3b>(i) = {page.dib.toneBlue[i], page.dib.toneGreen[i], page.dib.toneRed[i]};
    }
    cv::Mat display = Over(page, page.display);
    cv::LUT(Over(page, page.source), table, display);
  });
  Add(rows, "reduction to gray", "OpenCV", noBudget, [](Page& page) {
    cv::Mat display = Over(page, page.display);
    cv::Mat green;
    cv::extractChannel(display, green, 1);
    cv::cvtColor(green, display, cv::COLOR_GRAY2BGR);
  });
  Add(rows, "reduction to black and white", "OpenCV", noBudget, [](Page& page) {
    cv::Mat display = Over(page, page.display);
    cv::Mat green;
    cv::extractChannel(display, green, 1);
    cv::threshold(green, green, 128, 255, cv::THRESH_BINARY);
    cv::cvtColor(green, display, cv::COLOR_GRAY2BGR);
  });
  Add(rows, "histogram of three bands", "OpenCV calcHist", noBudget, [](Page& page) {
    const cv::Mat display = Over(page, page.display);
    const int bins = 256;
    const float range[] = {0, 256};
    const float* ranges = range;
    for (int channel = 0; channel < 3; ++channel) {
      cv::Mat histogram;
      cv::calcHist(&display, 1, &channel, cv::Mat(), histogram, 1, &bins, &ranges);
      Keep(histogram.data);
    }
  });
  Add(rows, "sharpen", "OpenCV filter2D", noBudget, [](Page& page) {
    const cv::Mat kernel = (cv::Mat_<float>(3, 3) << -1, -2, -1, -2, 28, -2, -1, -2, -1) / 16.0F;
    cv::Mat display = Over(page, page.display);
    cv::filter2D(Over(page, page.source), display, -1, kernel, cv::Point(-1, -1), 0, cv::BORDER_REPLICATE);
  });
  Add(rows, "saturation and hue together", "OpenCV transform", noBudget, [](Page& page) {
    const cv::Matx33f matrix(0.9F, 0.2F, -0.1F, -0.1F, 1.0F, 0.1F, 0.3F, -0.2F, 0.9F);
    cv::Mat display = Over(page, page.display);
    cv::transform(Over(page, page.source), display, matrix);
  });
}
#else
void AddPeers(Rows&) {}
#endif

Rows AllRows() {
  Rows rows;
  const auto roads = UsableRoads();
  const auto perRoad = [&](const char* name, const Budgets& budgets, auto on) {
    for (std::size_t i = 0; i < roads.size(); ++i) Add(rows, name, roads[i].name, budgets[i], on(roads[i]));
  };
  for (const RoadWork& work : roadWorks) perRoad(work.name, work.budgets, work.on);
  Add(rows, "histogram of three bands", "all", 5.0, [](Page& page) {
    const Histogram histogram = ComputeHistogram(&page.dib);
    Keep(&histogram);
  });
  AddPeers(rows);
  for (const Refresh& refresh : refreshes) {
    perRoad(refresh.name, refresh.budgets, [&](const PixelRoad& road) { return Refreshed(refresh, road); });
  }
  return rows;
}

}  // namespace

int main(int argc, char** argv) {
  return MeasureAndPrint(argc, argv, "The work on the picture", AllRows());
}

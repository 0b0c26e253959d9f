// The work on pixels beside memcpy of the same bytes, one thread, at the size of a full page and at that of a
// preview. OpenCV stands beside where the build found it.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "adjust/histogram.h"
#include "adjust/own_image_library.h"
#include "adjust/pixel_roads.h"
#include "adjust/preview.h"
#include "apps/stage/model/headless_windows.h"
#include "bench/measured_page.h"

#if SET32_HAVE_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace {

using namespace set32;

using Work = std::function<void(Page&)>;

void Measure(benchmark::State& state, const PageSize& size, const Work& work) {
  Page page(size);
  work(page);
  MeasureBeside(state, page, [&] { work(page); });
}

void Register(const std::string& name, const Work& work) {
  for (const PageSize& size : pageSizes) {
    benchmark::RegisterBenchmark((name + "/" + size.name).c_str(), Measure, size, work)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(40);
  }
}

template <typename RowWork>
Work RowByRow(RowWork work) {
  return [work](Page& page) {
    for (int row = 0; row < page.height; ++row) work(page, row, static_cast<std::size_t>(page.width));
  };
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

void RegisterRoad(const PixelRoad& road) {
  const auto named = [&road](const char* work) { return std::string(work) + "/" + road.name; };
  Register(named("tables"), RowByRow([&road](Page& page, int row, std::size_t width) {
             road.tables(page.SourceRow(row), page.DisplayRow(row), width, TablesOf(page.dib));
           }));
  Register(named("one table"), RowByRow([&road](Page& page, int row, std::size_t width) {
             road.oneTable(page.SourceRow(row), page.DisplayRow(row), width, page.dib.toneGreen);
           }));
  Register(named("reduction"), RowByRow([&road](Page& page, int row, std::size_t width) {
             road.levels(page.DisplayRow(row), page.DisplayRow(row), width, page.dib.toneGreen);
           }));
  Register(named("sharpen"), Filtered(road, 500, 0, 0));
  Register(named("saturation+hue"), Filtered(road, 0, 300, 40));
}

// A whole refresh on the best road of this processor.
Work Refreshed(std::uint32_t scanMode, std::int32_t sharpness, std::int32_t saturation, std::int32_t hue) {
  return [=](Page& page) {
    static OwnImageLibrary library;
    static HeadlessWindows windows;
    static HostLink host(windows);
    PreviewRenderer renderer(sheetPreview, library);
    ScanSettings settings{};
    settings.mode = scanMode;
    settings.sharpness = sharpness;
    settings.saturation = saturation;
    settings.hue = hue;
    renderer.Refresh(settings, &page.dib, 128, host, true);
  };
}

#if SET32_HAVE_OPENCV
cv::Mat Over(Page& page, std::vector<std::uint8_t>& pixels) {
  return {page.height, page.width, CV_8UC3, pixels.data(), page.dib.stride};
}

void RegisterPeers() {
  cv::setNumThreads(1);
  Register("tables/OpenCV LUT", [](Page& page) {
    cv::Mat table(1, 256, CV_8UC3);
    for (int i = 0; i < 256; ++i) {
      table.at<cv::Vec3b>(i) = {page.dib.toneBlue[i], page.dib.toneGreen[i], page.dib.toneRed[i]};
    }
    cv::Mat display = Over(page, page.display);
    cv::LUT(Over(page, page.source), table, display);
  });
  Register("reduction/OpenCV gray", [](Page& page) {
    cv::Mat display = Over(page, page.display);
    cv::Mat green;
    cv::extractChannel(display, green, 1);
    cv::cvtColor(green, display, cv::COLOR_GRAY2BGR);
  });
  Register("reduction/OpenCV black and white", [](Page& page) {
    cv::Mat display = Over(page, page.display);
    cv::Mat green;
    cv::extractChannel(display, green, 1);
    cv::threshold(green, green, 128, 255, cv::THRESH_BINARY);
    cv::cvtColor(green, display, cv::COLOR_GRAY2BGR);
  });
  Register("histogram/OpenCV calcHist", [](Page& page) {
    const cv::Mat display = Over(page, page.display);
    const int bins = 256;
    const float range[] = {0, 256};
    const float* ranges = range;
    for (int channel = 0; channel < 3; ++channel) {
      cv::Mat histogram;
      cv::calcHist(&display, 1, &channel, cv::Mat(), histogram, 1, &bins, &ranges);
      benchmark::DoNotOptimize(histogram.data);
    }
  });
  Register("sharpen/OpenCV filter2D", [](Page& page) {
    const cv::Mat kernel = (cv::Mat_<float>(3, 3) << -1, -2, -1, -2, 28, -2, -1, -2, -1) / 16.0F;
    cv::Mat display = Over(page, page.display);
    cv::filter2D(Over(page, page.source), display, -1, kernel, cv::Point(-1, -1), 0, cv::BORDER_REPLICATE);
  });
  Register("saturation+hue/OpenCV one matrix", [](Page& page) {
    const cv::Matx33f matrix(0.9F, 0.2F, -0.1F, -0.1F, 1.0F, 0.1F, 0.3F, -0.2F, 0.9F);
    cv::Mat display = Over(page, page.display);
    cv::transform(Over(page, page.source), display, matrix);
  });
}
#else
void RegisterPeers() {}
#endif

const bool registered = [] {
  for (const PixelRoad& road : UsableRoads()) RegisterRoad(road);
  Register("histogram", [](Page& page) { benchmark::DoNotOptimize(ComputeHistogram(&page.dib)); });
  Register("refresh/colour, tables only", Refreshed(mode::colour, 0, 0, 0));
  Register("refresh/gray, tables only", Refreshed(mode::gray, 0, 0, 0));
  Register("refresh/black and white", Refreshed(mode::blackWhite, 0, 0, 0));
  Register("refresh/gray, sharpened", Refreshed(mode::gray, 50, 0, 0));
  Register("refresh/colour, every stage", Refreshed(mode::colour, 50, 30, 40));
  RegisterPeers();
  return true;
}();

}  // namespace

#include "apps/scan-desk/window/drag_measure.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include <commctrl.h>

#include "resources/ids.h"

namespace scan_desk {

namespace {

constexpr int steps = 41;

HWND AdvancedPage(HWND general) {
  for (HWND page = GetWindow(GetParent(general), GW_CHILD); page != nullptr; page = GetWindow(page, GW_HWNDNEXT))
    if (GetDlgItem(page, set32::id148::firstSlider) != nullptr) return page;
  return nullptr;
}

double Now() {
  LARGE_INTEGER ticks{};
  LARGE_INTEGER perSecond{};
  QueryPerformanceCounter(&ticks);
  QueryPerformanceFrequency(&perSecond);
  return static_cast<double>(ticks.QuadPart) * 1000.0 / static_cast<double>(perSecond.QuadPart);
}

template <typename Work>
double Timed(const Work& work) {
  const double start = Now();
  work();
  return Now() - start;
}

double Median(std::vector<double>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace

std::optional<std::wstring> MeasureDrag(HWND desk, HWND general, const set32::CDib& picture) {
  const HWND page = AdvancedPage(general);
  if (page == nullptr || picture.sourcePixels == nullptr) return {};
  const HWND slider = GetDlgItem(page, set32::id148::firstSlider);
  const auto low = static_cast<int>(SendMessageW(slider, TBM_GETRANGEMIN, 0, 0));
  std::vector<std::uint8_t> copy(picture.imageSize);
  std::vector<double> drags;
  std::vector<double> copies;
  for (int step = 0; step < steps; ++step) {
    copies.push_back(Timed([&] { std::memcpy(copy.data(), picture.sourcePixels, copy.size()); }));
    const int position = low + 5 + step;
    drags.push_back(Timed([&] {
      SendMessageW(slider, TBM_SETPOS, TRUE, position);
      SendMessageW(page, WM_HSCROLL, MAKEWPARAM(TB_THUMBTRACK, position), reinterpret_cast<LPARAM>(slider));
      RedrawWindow(desk, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    }));
  }
  const double drag = Median(drags);
  const double peer = Median(copies);
  const auto tenths = [](double value) {
    const auto whole = static_cast<long>(value * 10.0 + 0.5);
    return std::to_wstring(whole / 10) + L"." + std::to_wstring(whole % 10);
  };
  return L"a step " + tenths(drag) + L" ms, a copy of the picture " + tenths(peer) + L" ms, ratio " +
         tenths(peer > 0 ? drag / peer : 0);
}

}  // namespace scan_desk

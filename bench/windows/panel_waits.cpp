// What a person waits for at the panel, on real windows: opening each face, turning to each tab of the Advanced page,
// the advanced dialog, and a change with 31 configurations. Beside each the least that the system can take for it:
// the same templates made and painted with nothing behind them, the same list filled and the same file written. Both
// in turn in one run; the table holds medians.
//
//   panel-waits.exe [--driver-type N] [--rounds N]
//
// set32.dll lies beside the program; it is copied into a folder of its own, whose files are the panel's.
#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

#include "bench/side_by_side.h"
#include "bench/windows/bare_panel.h"
#include "bench/windows/measured_panel.h"

namespace {

using namespace set32;

struct Choices {
  int driverType = 0;
  int rounds = 15;
};

std::optional<Choices> ChoicesOf(int count, char** values) {
  Choices choices;
  for (int i = 1; i < count; i += 2) {
    const std::string_view name(values[i]);
    int* const wanted = name == "--driver-type" ? &choices.driverType
                        : name == "--rounds"    ? &choices.rounds
                                                : nullptr;
    if (wanted == nullptr || i + 1 == count) return {};
    const std::string_view value(values[i + 1]);
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), *wanted);
    if (error != std::errc() || end != value.data() + value.size() || *wanted < (wanted == &choices.rounds ? 1 : 0))
      return {};
  }
  return choices;
}

// One row of the table; works are told apart from what has to be done before and after.
struct Times {
  std::vector<double> ours;
  std::vector<double> least;
};

void Print(const char* what, Times& times, double goal) {
  const double ours = Median(times.ours) * 1e3;
  const double least = Median(times.least) * 1e3;
  const double ratio = ours / least;
  if (goal == 0) {
    std::printf("%-44s %8.1f ms  %8.1f ms  %6.1f\n", what, ours, least, ratio);
  } else {
    std::printf("%-44s %8.1f ms  %8.1f ms  %6.1f  <= %.0f  %s\n", what, ours, least, ratio, goal,
                ratio <= goal ? "holds" : "missed");
  }
  std::fflush(stdout);
}

void MeasureOpening(const Choices& choices, Face face, const char* what) {
  Times times;
  for (int round = 0; round < choices.rounds; ++round) {
    {
      MeasuredPanel panel(choices.driverType, face);
      times.ours.push_back(Seconds([&] { panel.Open(); }));
    }
    BarePanel bare;
    times.least.push_back(Seconds([&] { bare.Open(face); }));
  }
  Print(what, times, choices.driverType == 0 ? 2 : 0);
}

void MeasureTabs(const Choices& choices) {
  MeasuredPanel panel(choices.driverType, Face::sheet);
  panel.Open();
  BarePanel bare;
  bare.Open(Face::sheet);
  Times page;
  std::array<Times, 3> tabs;
  for (int round = 0; round < choices.rounds; ++round) {
    page.ours.push_back(Seconds([&] { panel.TurnTo(1); }));
    page.least.push_back(Seconds([&] { bare.TurnTo(1); }));
    for (const int tab : {1, 2, 0}) {
      Times& times = tabs[static_cast<std::size_t>(tab)];
      times.ours.push_back(Seconds([&] { panel.TurnAdvancedTo(tab); }));
      times.least.push_back(Seconds([&] { bare.ShowAdvancedAnew(); }));
    }
    panel.TurnTo(0);
    bare.TurnTo(0);
  }
  Print("turning to the Advanced page", page, 2);
  Print("  its tab gamma and sharpness", tabs[0], 2);
  Print("  its tab brightness and contrast", tabs[1], 2);
  Print("  its tab saturation and hue", tabs[2], 2);
}

void MeasureDialog(const Choices& choices) {
  MeasuredPanel panel(choices.driverType, Face::inlinePage);
  panel.Open();
  BarePanel bare;
  bare.Open(Face::inlinePage);
  Times times;
  for (int round = 0; round < choices.rounds; ++round) {
    times.ours.push_back(Seconds([&] { panel.OpenDialog(); }));
    panel.CloseDialog();
    times.least.push_back(Seconds([&] { bare.OpenDialog(); }));
    bare.CloseDialog();
  }
  Print("opening the advanced dialog", times, 2);
}

void MeasureChange(const Choices& choices) {
  MeasuredPanel panel(choices.driverType, Face::sheet);
  panel.Open();
  panel.FillRows(CConfigStore::mostRows);
  BarePanel bare;
  bare.Open(Face::sheet);
  const std::string profile = panel.Profile();
  Times times;
  for (int round = 0; round < choices.rounds; ++round) {
    times.ours.push_back(Seconds([&] { panel.PickResolution(3 + round % 2); }));
    times.least.push_back(Seconds([&] { bare.Refill(CConfigStore::mostRows, profile); }));
  }
  Print("a change with 31 configurations", times, 0);
}

}  // namespace

int main(int count, char** values) {
  const std::optional<Choices> choices = ChoicesOf(count, values);
  if (!choices) {
    std::fprintf(stderr, "usage: panel-waits.exe [--driver-type N] [--rounds N]\n");
    return 2;
  }
  std::printf("%-44s %11s  %11s  %6s\n", "until all is painted", "the panel", "the least", "ratio");
  MeasureOpening(*choices, Face::sheet, "opening the sheet face");
  if (choices->driverType != 0) return 0;  // the search is the whole difference
  MeasureOpening(*choices, Face::inlinePage, "opening the inline face");
  MeasureTabs(*choices);
  MeasureDialog(*choices);
  MeasureChange(*choices);
  return 0;
}

#include "bench/measured_table.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string_view>

#include "bench/side_by_side.h"
#include "bench/spent_time.h"

namespace set32 {

namespace {

constexpr int usualRounds = 31;
constexpr int mostRounds = 10000;

struct Medians {
  double copied = 0.0;
  double worked = 0.0;

  double Ratio() const { return worked / copied; }
};

double Spent(const std::function<void()>& work) {
  const double start = SpentTime();
  work();
  return SpentTime() - start;
}

// Rows one after the other within a round, so that a change of the machine's load falls on all of them.
std::vector<Medians> MeasureAll(const PageSize& size, const std::vector<Measured>& rows, int rounds) {
  Page page(size);
  std::vector<std::uint8_t> copy(page.source.size());
  const std::function<void()> copyPage = [&] {
    std::memcpy(copy.data(), page.source.data(), copy.size());
    Keep(copy.data());
  };
  std::vector<std::function<void()>> works;
  for (const Measured& row : rows) works.push_back(row.prepare(page));
  copyPage();
  for (const auto& work : works) work();

  std::vector<std::vector<double>> copyTimes(rows.size());
  std::vector<std::vector<double>> workTimes(rows.size());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < works.size(); ++i) {
      copyTimes[i].push_back(Spent(copyPage));
      workTimes[i].push_back(Spent(works[i]));
    }
  }
  std::vector<Medians> medians(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) medians[i] = {Median(copyTimes[i]), Median(workTimes[i])};
  return medians;
}

double MedianCopy(const std::vector<Medians>& medians) {
  std::vector<double> times;
  for (const Medians& row : medians) times.push_back(row.copied);
  return Median(times);
}

void PrintRow(const std::string& work, const std::string& road, const Medians& full, const Medians& small,
              double budget) {
  std::printf("| %-42s | %-18s | %5.2f | %7.2f ", work.c_str(), road.c_str(), full.Ratio(), full.worked * 1e3);
  if (budget > 0.0) {
    std::printf("| %6.1f | %-6s ", budget, full.Ratio() <= budget ? "holds" : "MISSED");
  } else {
    std::printf("| %6s | %-6s ", "", "");
  }
  std::printf("| %5.2f | %6.3f |\n", small.Ratio(), small.worked * 1e3);
}

void Print(const char* title, const std::vector<Measured>& rows, int rounds) {
  const std::vector<Medians> full = MeasureAll(fullPage, rows, rounds);
  const std::vector<Medians> small = MeasureAll(smallPage, rows, rounds);
  std::printf(
      "%s\n%zu bits, medians of %d rounds, %s; ratios to memcpy of the picture, which took %.2f ms at %s and\n"
      "%.3f ms at %s. Budgets are ratios at %s.\n\n",
      title, sizeof(void*) * 8, rounds, spentTimeName, MedianCopy(full) * 1e3, fullPage.name, MedianCopy(small) * 1e3,
      smallPage.name, fullPage.name);
  std::printf("| %-42s | %-18s | ratio |      ms | budget |        | small |     ms |\n", "work", "road");
  std::printf("|%s|%s|------:|--------:|-------:|--------|------:|-------:|\n", std::string(44, '-').c_str(),
              std::string(20, '-').c_str());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    PrintRow(rows[i].work, rows[i].road, full[i], small[i], rows[i].budget);
  }
  std::printf("\n");
}

std::optional<int> RoundsOf(int argc, char** argv) {
  if (argc == 1) return usualRounds;
  if (argc != 3 || std::string_view(argv[1]) != "--rounds") return std::nullopt;
  const std::string_view text = argv[2];
  int rounds = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), rounds);
  const bool whole = error == std::errc{} && end == text.data() + text.size();
  return whole && rounds >= 1 && rounds <= mostRounds ? std::optional(rounds) : std::nullopt;
}

}  // namespace

int MeasureAndPrint(int argc, char** argv, const char* title, const std::vector<Measured>& rows) {
  const std::optional<int> rounds = RoundsOf(argc, argv);
  if (!rounds) {
    std::fprintf(stderr, "usage: %s [--rounds 1..%d]\n", argv[0], mostRounds);
    return 2;
  }
  Print(title, rows, *rounds);
  return 0;
}

}  // namespace set32

#include "bench/measured_table.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "bench/side_by_side.h"
#include "bench/spent_time.h"

namespace set32 {

namespace {

constexpr int mostRounds = 10000;

// With a clock of long steps fewer rounds, each with the work as often as makes so many steps.
constexpr double leastSteps = 16.0;
const int usualRounds = spentTimeStep > 0.0 ? 5 : 21;

struct Medians {
  double copied = 0.0;
  double worked = 0.0;

  double Ratio() const { return worked / copied; }
};

// Between two events of a hand a host and its system do work of their own, so a picture isn't found in the caches.
// Here each run has the next of several.
constexpr std::size_t pictures = 4;
using Works = std::vector<std::function<void()>>;

// A work on each picture, run before it is measured, with how many runs are measured at once.
class Repeated {
 public:
  explicit Repeated(Works works) : works_(std::move(works)) {
    for (const auto& work : works_) work();
    runs_ = std::max(1, static_cast<int>(leastSteps * spentTimeStep / Seconds([this] { Run(); })));
  }

  double Spent() {
    const double start = SpentTime();
    for (int i = 0; i < runs_; ++i) Run();
    return (SpentTime() - start) / runs_;
  }

 private:
  void Run() {
    works_[next_]();
    next_ = (next_ + 1) % works_.size();
  }

  Works works_;
  std::size_t next_ = 0;
  int runs_ = 1;
};

struct Copied {
  explicit Copied(const PageSize& size) : page(size), copy(page.source.size()) {}

  Page page;
  std::vector<std::uint8_t> copy;
};

template <typename Prepare>
Works OnEach(std::vector<std::unique_ptr<Copied>>& all, Prepare prepare) {
  Works works;
  for (const auto& one : all) works.push_back(prepare(*one));
  return works;
}

// Rows one after the other within a round, so that a change of the machine's load falls on all of them.
std::vector<Medians> MeasureAll(const PageSize& size, const std::vector<Measured>& rows, int rounds) {
  std::vector<std::unique_ptr<Copied>> all;
  for (std::size_t i = 0; i < pictures; ++i) all.push_back(std::make_unique<Copied>(size));
  Repeated copying(OnEach(all, [](Copied& one) {
    return [&one] {
      std::memcpy(one.copy.data(), one.page.source.data(), one.copy.size());
      Keep(one.copy.data());
    };
  }));
  std::vector<Repeated> works;
  for (const Measured& row : rows) {
    works.emplace_back(OnEach(all, [&row](Copied& one) { return row.prepare(one.page); }));
  }

  std::vector<std::vector<double>> copyTimes(rows.size());
  std::vector<std::vector<double>> workTimes(rows.size());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < works.size(); ++i) {
      copyTimes[i].push_back(copying.Spent());
      workTimes[i].push_back(works[i].Spent());
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
  std::printf("%s, %s and %s (small)\n", title, fullPage.name, smallPage.name);
  std::printf(
      "%zu bits; medians of %d rounds in processor time; ratios to memcpy of the picture, %.2f ms and %.3f ms\n\n",
      sizeof(void*) * 8, rounds, MedianCopy(full) * 1e3, MedianCopy(small) * 1e3);
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

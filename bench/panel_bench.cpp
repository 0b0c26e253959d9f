// Opening the panel with nothing on the network: the first time (fresh or kept profile) and again; and reading a list
// of 31 rows. Everything but the disk: files lie in memory, searches wait in simulated time.
#include <benchmark/benchmark.h>

#include <cstdlib>

#include "resources/ids.h"
#include "tests/support/memory_files.h"
#include "tests/support/memory_world.h"

namespace {

using namespace set32;

constexpr int mostRows = 31;

void Require(bool holds) {
  if (!holds) std::abort();
}

// A profile of as many flatbed rows as the list takes.
MemoryFiles FullProfile() {
  MemoryFiles files;
  MemoryWorld world(files);
  Module module(world.platform);
  MemoryHost host(world);
  Require(host.Open(module) != nullptr);
  ScanConfigItem item{};
  item.settings = *host.record;
  item.editable = item.deletable = 1;
  for (int row = 6; row < mostRows; ++row) {
    Require(StoreConfigItem(world.profiles, MemoryWorld::profilePath, "row " + std::to_string(row), item) ==
            Stored::written);
  }
  return files;
}

void OpenFirst(benchmark::State& state, const MemoryFiles& disk) {
  for (auto _ : state) {
    state.PauseTiming();
    auto files = std::make_unique<MemoryFiles>(disk);
    auto world = std::make_unique<MemoryWorld>(*files);
    auto host = std::make_unique<MemoryHost>(*world);
    state.ResumeTiming();
    auto module = std::make_unique<Module>(world->platform);
    Require(host->Open(*module) != nullptr);
    state.PauseTiming();
    host.reset();
    module.reset();
    world.reset();
    state.ResumeTiming();
  }
}

void FirstOpeningOnAFreshProfile(benchmark::State& state) {
  OpenFirst(state, {});
}
BENCHMARK(FirstOpeningOnAFreshProfile)->Unit(benchmark::kMicrosecond);

void FirstOpeningWith31Rows(benchmark::State& state) {
  OpenFirst(state, FullProfile());
}
BENCHMARK(FirstOpeningWith31Rows)->Unit(benchmark::kMicrosecond);

void LaterOpeningWith31Rows(benchmark::State& state) {
  MemoryFiles files = FullProfile();
  MemoryWorld world(files);
  Module module(world.platform);
  MemoryHost host(world);
  Require(host.Open(module) != nullptr);
  std::size_t messages = 0;
  host.heard = [&](std::uint32_t) { ++messages; };
  for (auto _ : state) Require(host.Open(module) != nullptr);
  Require(messages == 3 * static_cast<std::size_t>(state.iterations()));  // each opening refreshed the panel
}
BENCHMARK(LaterOpeningWith31Rows)->Unit(benchmark::kMicrosecond);

// A click on Save and its dialog aside, the list is rebuilt by each change: read, 31 rows, columns, one write.
void ChangeWith31Rows(benchmark::State& state) {
  MemoryFiles files = FullProfile();
  MemoryWorld world(files);
  Module module(world.platform);
  MemoryHost host(world);
  Dialog* page = host.Open(module);
  Require(page != nullptr);
  auto& rows = page->Get<List>(id::configList);
  Require(rows.Count() == mostRows);
  world.screen.input.ArrowTo(rows, mostRows - 1);
  int entry = 3;
  for (auto _ : state) {
    world.screen.input.PickEntry(page->Get<Combo>(id::resolutionCombo), entry);
    entry = 7 - entry;
  }
  Require(rows.Count() == mostRows);
}
BENCHMARK(ChangeWith31Rows)->Unit(benchmark::kMicrosecond);

}  // namespace

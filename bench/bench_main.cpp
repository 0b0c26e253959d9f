// The programs that measure with the benchmark library: its table without its lines about the machine, since they
// call the library a debug one wherever a distribution built it without its own flag.
#include <benchmark/benchmark.h>

namespace {

class TableAlone final : public benchmark::ConsoleReporter {
 public:
  bool ReportContext(const Context& context) override {
    name_field_width_ = context.name_field_width;
    return true;
  }
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  TableAlone table;
  benchmark::RunSpecifiedBenchmarks(&table);
  benchmark::Shutdown();
  return 0;
}

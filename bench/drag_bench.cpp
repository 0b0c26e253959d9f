// One event of a slider's drag on the Advanced page, from the report of the scroll until its handler is back: the
// preview is rendered, the picture area drawn, the host told and asked to repaint. Beside memcpy of the picture.
#include <cstdlib>

#include "bench/measured_page.h"
#include "resources/ids.h"
#include "tests/support/memory_files.h"
#include "tests/support/memory_world.h"

namespace {

using namespace set32;

void Require(bool holds) {
  if (!holds) std::abort();
}

// The Advanced page in front of a host that does nothing, turned to a tab.
class Panel {
 public:
  Panel(Page& page, int tab) {
    Require(host_.Open(module_, &page.dib) != nullptr);
    world_.screen.input.ChooseTab(Find(dialog::sheet).Get<TabBar>(id_sheet::tabs), 1);
    advanced_ = &Find(dialog::advanced);
    world_.screen.input.ChooseTab(advanced_->Get<TabBar>(id148::viewTabs), tab);
    world_.screen.input.Pump();
    host_.heard = [this](std::uint32_t) { ++told_; };
  }

  void DragTo(int position) {
    Slider& slider = advanced_->Get<Slider>(id148::firstSlider);
    world_.screen.input.ScrollTo(slider, scroll_code::thumbTrack, position);
  }
  std::int64_t Told() const { return told_; }

 private:
  Dialog& Find(int templateId) {
    for (Dialog* dialog : world_.screen.windows.Standing()) {
      if (dialog->TemplateId() == templateId) return *dialog;
    }
    std::abort();
  }

  MemoryFiles files_;
  MemoryWorld world_{files_};
  Module module_{world_.platform};
  MemoryHost host_{world_};
  Dialog* advanced_ = nullptr;
  std::int64_t told_ = 0;
};

void Drag(benchmark::State& state, const PageSize& size, int tab) {
  Page page(size);
  Panel panel(page, tab);
  int position = 20;
  const auto drag = [&] {
    panel.DragTo(position);
    position = 60 - position;  // to and fro, so that each event changes the value
  };
  drag();
  MeasureBeside(state, page, drag);
  constexpr int saturation = 2;  // goes into the record without a message
  Require(panel.Told() == (tab == saturation ? 0 : static_cast<std::int64_t>(state.iterations()) + 1));
}

const bool registered = [] {
  constexpr const char* names[] = {"drag/gamma", "drag/brightness and histogram", "drag/saturation"};
  for (int tab = 0; tab < 3; ++tab) {
    for (const PageSize& size : pageSizes) {
      benchmark::RegisterBenchmark((std::string(names[tab]) + "/" + size.name).c_str(), Drag, size, tab)
          ->UseManualTime()
          ->Unit(benchmark::kMillisecond)
          ->Iterations(40);
    }
  }
  return true;
}();

}  // namespace

// One event of a slider's drag on the Advanced page, from the report of the scroll until its handler is back: the
// preview is rendered, the picture area drawn, the host told and asked to repaint. Beside memcpy of the picture.
#include <cstdlib>
#include <memory>

#include "bench/measured_table.h"
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

// Each event changes the value, and the host hears of it, but for saturation, which goes into the record unsaid.
std::function<void()> Drags(Page& page, int tab) {
  constexpr int saturation = 2;
  return [panel = std::make_shared<Panel>(page, tab), tab, position = 20]() mutable {
    const std::int64_t before = panel->Told();
    panel->DragTo(position);
    position = 60 - position;
    Require(panel->Told() == before + (tab == saturation ? 0 : 1));
  };
}

}  // namespace

int main(int argc, char** argv) {
  const auto tab = [](int index) { return [index](Page& page) { return Drags(page, index); }; };
  const std::string best = BestRoad().name;
  return MeasureAndPrint(argc, argv, "One step of a dragged slider on the Advanced page",
                         {{"drag: gamma", best, 3.0, tab(0)},
                          {"drag: brightness, with the histogram", best, 6.0, tab(1)},
                          {"drag: saturation", best, 5.0, tab(2)}});
}

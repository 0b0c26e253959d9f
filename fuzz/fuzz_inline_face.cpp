// What a person does at the inline face and at its advanced dialog, which is brought back whenever it is gone. What
// the record holds of the picture stays within its ranges.
#include "fuzz/support/panel.h"
#include "resources/ids.h"

namespace {

using namespace set32;
using namespace set32::fuzz;

Dialog* BringAdvancedDialog(Panel& panel) {
  if (panel.Find(dialog::gamma) == nullptr) {
    if (Dialog* page = panel.Page()) panel.world.screen.input.Click(page->Get<Control>(id::advancedButton));
  }
  return panel.Find(dialog::gamma);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Panel panel({data, size});
  const int given = panel.choices.Next();
  panel.ChooseFace(Face::inlinePage);
  panel.host.jpegModes = (given & 1) != 0;
  panel.host.outputBits = static_cast<std::uint32_t>(36 + (given >> 1 & 3) * 6);
  RunAtDialog(panel, BringAdvancedDialog);
  return 0;
}

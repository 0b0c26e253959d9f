// What a person does at the Advanced page of the sheet face, with a picture that each change renders anew, and at
// times at the General page. What the record holds of the picture stays within its ranges.
#include "fuzz/support/panel.h"
#include "fuzz/support/picture.h"
#include "resources/ids.h"

namespace {

using namespace set32;
using namespace set32::fuzz;

Dialog* TurnToAdvancedPage(Panel& panel) {
  if (panel.Find(dialog::advanced) == nullptr) {
    if (Dialog* sheet = panel.Find(dialog::sheet))
      panel.world.screen.input.TurnToTab(sheet->Get<TabBar>(id_sheet::tabs), 1);
  }
  return panel.Find(dialog::advanced);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static HostPicture picture({.width = 24, .height = 16});
  CDib dib;  // the panel may ask for it until its end
  picture.Lend(dib);
  Panel panel({data, size});
  panel.preview = &dib;
  panel.ChooseFace(Face::sheet);
  RunAtDialog(panel, TurnToAdvancedPage);
  return 0;
}

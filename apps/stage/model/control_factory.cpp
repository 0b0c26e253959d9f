#include "apps/stage/model/control_factory.h"

#include "apps/stage/model/combo_model.h"
#include "apps/stage/model/dialog_units.h"
#include "apps/stage/model/edit_model.h"
#include "apps/stage/model/list_model.h"
#include "apps/stage/model/range_models.h"
#include "apps/stage/model/simple_models.h"
#include "apps/stage/model/tab_model.h"

namespace set32 {

namespace {

Rect PlaceOf(const HeadlessDialog& dialog, const ControlTemplate& source) {
  if ((source.flags & control_flag::fill) != 0) {
    const Size client = dialog.ClientSize();
    return {0, 0, client.width, client.height};
  }
  return PlaceInPixels(source.x, source.y, source.width, source.height);
}

}  // namespace

std::unique_ptr<Control> MakeControl(HeadlessDialog& dialog, const ControlTemplate& source) {
  const Rect place = PlaceOf(dialog, source);
  switch (source.kind) {
    case ControlKind::label:
      return std::make_unique<LabelModel>(dialog, source, place);
    case ControlKind::group:
      return std::make_unique<GroupModel>(dialog, source, place);
    case ControlKind::edit:
      return std::make_unique<EditModel>(dialog, source, place);
    case ControlKind::combo:
    case ControlKind::iconCombo:
      return std::make_unique<ComboModel>(dialog, source, place);
    case ControlKind::button:
    case ControlKind::defaultButton:
      return std::make_unique<ButtonModel<Button>>(dialog, source, place);
    case ControlKind::pictureButton:
      return std::make_unique<PictureButtonModel>(dialog, source, place);
    case ControlKind::check:
    case ControlKind::radio:
      return std::make_unique<CheckModel>(dialog, source, place);
    case ControlKind::list:
      return std::make_unique<ListModel>(dialog, source, place);
    case ControlKind::tab:
      return std::make_unique<TabModel>(dialog, source, place);
    case ControlKind::slider:
      return std::make_unique<SliderModel>(dialog, source, place);
    case ControlKind::scroll:
      return std::make_unique<ScrollBarModel>(dialog, source, place);
    case ControlKind::spin:
      return std::make_unique<SpinModel>(dialog, source, place);
    case ControlKind::address:
      return std::make_unique<AddressModel>(dialog, source, place);
    case ControlKind::picture:
      return std::make_unique<PictureModel>(dialog, source, place);
    case ControlKind::frame:
      return std::make_unique<FrameModel>(dialog, source, place);
  }
  return nullptr;
}

}  // namespace set32

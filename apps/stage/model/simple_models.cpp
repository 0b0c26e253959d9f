#include "apps/stage/model/simple_models.h"

#include <algorithm>

#include "apps/stage/model/headless_dialog.h"

namespace set32 {

void ClickButton(const ControlModel& button) {
  if (!button.Alive()) return;
  switch (button.ModelId()) {
    case dialog_result::ok:
      button.Owner()->Accept();
      break;
    case dialog_result::cancel:
      button.Owner()->Cancel();
      break;
    default:
      button.Raise(EventKind::clicked);
  }
}

void PictureButtonModel::SetPictures(const ButtonPictures& pictures) {
  if (!Alive()) return;
  pictures_ = pictures;
  if (pictures.up.Empty()) return;
  place_.right = place_.left + pictures.up.size.width;
  place_.bottom = place_.top + pictures.up.size.height;
}

int AddressModel::Fields(std::array<std::uint8_t, 4>& fields) const {
  fields = {};
  if (!Alive()) return 0;
  int filled = 0;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    fields[i] = fields_[i].value_or(0);
    if (fields_[i]) ++filled;
  }
  return filled;
}

std::string AddressModel::Text() const {
  std::array<std::uint8_t, 4> filled{};
  if (Fields(filled) == 0) return {};
  std::string text;
  for (const std::optional<std::uint8_t>& field : fields_) {
    if (&field != fields_.data()) text += '.';
    if (field) text += std::to_string(*field);
  }
  return text;
}

void AddressModel::Fill(const std::array<std::optional<int>, 4>& fields) {
  if (!Alive()) return;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    fields_[i].reset();
    if (fields[i]) fields_[i] = static_cast<std::uint8_t>(std::clamp(*fields[i], 0, 255));
  }
}

void FrameModel::Draw(const std::function<void(Canvas&)>& drawing) {
  const Size area = ClientSize();
  if (area.width == 0 || area.height == 0) return;
  RasterCanvas canvas(area);
  if (drawing_.size == area) canvas.Draw(drawing_, {});
  drawing(canvas);
  drawing_ = canvas.Drawing();
}

}  // namespace set32

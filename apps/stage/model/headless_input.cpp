#include "apps/stage/model/headless_input.h"

#include "apps/stage/model/combo_model.h"
#include "apps/stage/model/edit_model.h"
#include "apps/stage/model/list_model.h"
#include "apps/stage/model/range_models.h"
#include "apps/stage/model/tab_model.h"
#include "platform/utf8.h"

namespace set32 {

WindowHandle HeadlessInput::MakeHostWindow(Size client, HostWindowHandler& handler) {
  return windows_.MakeHost(client, handler);
}

void HeadlessInput::DestroyHostWindow(WindowHandle window) {
  windows_.Destroy(window);
}

// A control that leaving the edit before it has disabled or ended takes no act any more.
template <typename Model, typename Act>
void HeadlessInput::FocusAnd(Control& control, Act act) {
  control.SetFocus();
  auto* model = dynamic_cast<Model*>(&control);
  if (model != nullptr && control.IsEnabled()) act(*model);
}

void HeadlessInput::Click(Control& button) {
  FocusAnd<Clickable>(button, [](Clickable& model) { model.Click(); });
}

void HeadlessInput::PickEntry(Combo& combo, int index) {
  FocusAnd<ComboModel>(combo, [=](ComboModel& model) { model.Pick(index); });
}

void HeadlessInput::ChooseTab(TabBar& bar, int index) {
  FocusAnd<TabModel>(bar, [=](TabModel& model) { model.Choose(index); });
}

void HeadlessInput::TurnToTab(TabBar& bar, int index) {
  if (auto* model = dynamic_cast<TabModel*>(&bar)) model->Choose(index);
}

void HeadlessInput::ClickRow(List& list, int row) {
  FocusAnd<ListModel>(list, [=](ListModel& model) { model.Click(row); });
}

void HeadlessInput::ArrowTo(List& list, int row) {
  FocusAnd<ListModel>(list, [=](ListModel& model) { model.ArrowTo(row); });
}

void HeadlessInput::SetCaret(Edit& edit, TextRange range) {
  FocusAnd<EditModel>(edit, [=](EditModel& model) { model.Select(range); });
}

void HeadlessInput::DropList(Combo& combo) {
  FocusAnd<ComboModel>(combo, [](ComboModel& model) { model.Drop(); });
}

void HeadlessInput::FillAddress(Address& address, const std::array<std::optional<int>, 4>& fields) {
  FocusAnd<AddressModel>(address, [&](AddressModel& model) { model.Fill(fields); });
}

void HeadlessInput::TypeText(Edit& edit, std::string_view text) {
  auto* model = dynamic_cast<EditModel*>(&edit);
  while (model != nullptr && model->Alive() && !text.empty()) {
    const std::string_view character = text.substr(0, utf8::CharacterLength(text));
    text.remove_prefix(character.size());
    model->Type(character);
  }
}

void HeadlessInput::Backspace(Edit& edit, int times) {
  auto* model = dynamic_cast<EditModel*>(&edit);
  for (int i = 0; i < times && model != nullptr && model->Alive(); ++i) model->Type("\b");
}

void HeadlessInput::Paste(Edit& edit) {
  std::string text;
  const bool holdsText = clipboard_.Read(text) == ClipboardRead::text;
  if (auto* model = dynamic_cast<EditModel*>(&edit)) model->Paste(holdsText ? text : std::string());
}

void HeadlessInput::ScrollTo(Control& bar, int code, std::optional<int> position) {
  if (auto* slider = dynamic_cast<SliderModel*>(&bar)) slider->Scroll(code, position);
  if (auto* scrollBar = dynamic_cast<ScrollBarModel*>(&bar)) scrollBar->Scroll(code, position);
}

void HeadlessInput::SpinBy(Spin& spin, int delta) {
  if (auto* model = dynamic_cast<SpinModel*>(&spin)) model->Step(delta);
}

void HeadlessInput::Release(Slider& slider) {
  if (const auto* model = dynamic_cast<SliderModel*>(&slider)) model->Raise(EventKind::released);
}

void HeadlessInput::Poke(Control& button) {
  if (auto* model = dynamic_cast<Clickable*>(&button)) model->Click();
}

void HeadlessInput::MovePointer(Dialog& dialog, Point at) {
  if (HeadlessDialog* model = windows_.DialogOf(dialog.Handle())) windows_.MovePointer(*model, at);
}

void HeadlessInput::Resize(Dialog& dialog, Size client) {
  const Rect place = dialog.Place();
  const Size before = dialog.ClientSize();
  dialog.Move({place.left, place.top, place.right + client.width - before.width,
               place.bottom + client.height - before.height});
}

void HeadlessInput::SendClose(Dialog& dialog) {
  windows_.Tell(dialog.Handle(), [](DialogHandler& handler) { handler.OnClose(); });
}

}  // namespace set32

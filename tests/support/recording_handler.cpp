#include "tests/support/recording_handler.h"

#include <map>

namespace set32 {

namespace {

std::string StateName(RowState state) {
  if (state.selected && state.focused) return "both";
  if (state.selected) return "selected";
  return state.focused ? "focused" : "none";
}

std::string Described(const Event& event) {
  static const std::map<EventKind, std::string> names = {{EventKind::clicked, "clicked"},
                                                         {EventKind::editUpdate, "update"},
                                                         {EventKind::editChanged, "changed"},
                                                         {EventKind::focusGained, "gained"},
                                                         {EventKind::focusLost, "lost"},
                                                         {EventKind::selectionChosen, "chosen"},
                                                         {EventKind::dropDown, "drop"},
                                                         {EventKind::closeUp, "close up"},
                                                         {EventKind::rowChanged, "row"},
                                                         {EventKind::rowClicked, "row clicked"},
                                                         {EventKind::tabChanging, "tab changing"},
                                                         {EventKind::tabChanged, "tab changed"},
                                                         {EventKind::scrolled, "scrolled"},
                                                         {EventKind::released, "released"},
                                                         {EventKind::spinDelta, "delta"},
                                                         {EventKind::paint, "paint"}};
  const auto number = [](auto value) { return ' ' + std::to_string(value); };
  std::string told = names.at(event.kind);
  if (event.kind == EventKind::rowChanged)
    told += number(event.row) + ' ' + StateName(event.before) + '>' + StateName(event.after);
  if (event.kind == EventKind::rowClicked) told += number(event.row);
  if (event.kind == EventKind::scrolled) told += number(event.code) + number(event.position);
  if (event.kind == EventKind::spinDelta) told += number(event.position) + number(event.delta);
  return told;
}

}  // namespace

void RecordingHandler::OnInit(Dialog& dialog) {
  lines_.emplace_back("init");
  if (init) init(dialog);
}

void RecordingHandler::OnEvent(const Event& event) {
  if (event.refuse != nullptr && refuseSpin) *event.refuse = true;
  if (event.kind == EventKind::paint && !recordPaint) return;
  Note(std::to_string(event.controlId) + " " + Described(event));
}

MessageResult RecordingHandler::OnMessage(std::uint32_t message, WParam wParam, LParam lParam) {
  Note("message " + std::to_string(message) + " " + std::to_string(wParam) + " " + std::to_string(lParam));
  return 7;
}

void RecordingHandler::OnResize(ResizeKind, Size client) {
  Note("resize " + std::to_string(client.width) + " " + std::to_string(client.height));
}

void RecordingHandler::OnOk() {
  Note("ok");
  if (runDefaults) DialogHandler::OnOk();
}

void RecordingHandler::OnCancel() {
  Note("cancel");
  if (runDefaults) DialogHandler::OnCancel();
}

void RecordingHandler::OnPointerMoved(Point at) {
  Note("pointer " + std::to_string(at.x) + " " + std::to_string(at.y));
}

// The line stands before whatever `on` does, which may end the dialog or replace itself.
void RecordingHandler::Note(const std::string& line) {
  lines_.push_back(line);
  const auto act = on;
  if (act) act(line);
}

}  // namespace set32

#include "tests/support/recording_handler.h"

namespace set32 {

namespace {

std::string StateName(RowState state) {
  if (state.selected && state.focused) return "both";
  if (state.selected) return "selected";
  return state.focused ? "focused" : "none";
}

std::string Described(const Event& event) {
  switch (event.kind) {
    case EventKind::clicked:
      return "clicked";
    case EventKind::editUpdate:
      return "update";
    case EventKind::editChanged:
      return "changed";
    case EventKind::focusGained:
      return "gained";
    case EventKind::focusLost:
      return "lost";
    case EventKind::selectionChosen:
      return "chosen";
    case EventKind::dropDown:
      return "drop";
    case EventKind::closeUp:
      return "close up";
    case EventKind::rowChanged:
      return "row " + std::to_string(event.row) + " " + StateName(event.before) + ">" + StateName(event.after);
    case EventKind::rowClicked:
      return "row clicked " + std::to_string(event.row);
    case EventKind::tabChanging:
      return "tab changing";
    case EventKind::tabChanged:
      return "tab changed";
    case EventKind::scrolled:
      return "scrolled " + std::to_string(event.code) + " " + std::to_string(event.position);
    case EventKind::released:
      return "released";
    case EventKind::spinDelta:
      return "delta " + std::to_string(event.position) + " " + std::to_string(event.delta);
    case EventKind::paint:
      return "paint";
  }
  return "?";
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
void RecordingHandler::Note(std::string line) {
  lines_.push_back(line);
  const auto act = on;
  if (act) act(line);
}

}  // namespace set32

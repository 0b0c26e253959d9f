// A dialog's handler that writes down all it hears, one short line each, and can act inside.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows.h"

namespace set32 {

class RecordingHandler : public DialogHandler {
 public:
  using Lines = std::vector<std::string>;

  // What was heard since the last call.
  Lines Take() { return std::exchange(lines_, {}); }

  std::function<void(Dialog&)> init;           // acts inside OnInit
  std::function<void(const std::string&)> on;  // acts inside every other call, with its line

  void OnInit(Dialog& dialog) override;
  void OnEvent(const Event& event) override;
  MessageResult OnMessage(std::uint32_t message, WParam wParam, LParam lParam) override;
  void OnResize(ResizeKind kind, Size client) override;
  void OnOk() override;
  void OnCancel() override;
  void OnShown(bool shown) override { Note(shown ? "shown" : "not shown"); }
  void OnEnabled(bool enabled) override { Note(enabled ? "enabled" : "disabled"); }
  void OnPointerMoved(Point at) override;
  void OnDestroying() override { Note("destroying"); }
  void OnDestroyed() override { Note("destroyed"); }

  bool refuseSpin = false;
  bool runDefaults = true;   // the default of OnOk and OnCancel; not once the dialog object is released
  bool recordPaint = false;  // repaints come when the loop likes

 private:
  void Note(const std::string& line);

  Lines lines_;
};

}  // namespace set32

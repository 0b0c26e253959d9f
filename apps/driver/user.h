// A person at the panel, who can do only what a person could: act on a control that is to be seen and enabled, on the
// page in front, while no box and no modal dialog stands before it. Everything else throws NotPossible with the
// reason.
//
// What is typed or pasted is text: a byte that is no character comes as U+FFFD, as from any keyboard or clipboard.
//
// After each act the message loop has gone round. Scripts and scenario tests act through this class alone.
#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "apps/driver/scene.h"
#include "apps/stage/input.h"
#include "platform/clipboard.h"
#include "platform/system.h"

namespace set32 {

class User {
 public:
  // How scripts and tests name a control: by id on the default dialog, or with the dialog's number.
  struct Target : ControlName {
    Target(int controlId) { id = controlId; }
    Target(int dialogId, int controlId) {
      dialog = dialogId;
      id = controlId;
    }
    Target(const ControlName& name) : ControlName(name) {}
  };

  User(Scene& scene, Input& input, Clipboard& clipboard, System& system)
      : scene_(scene), input_(input), clipboard_(clipboard), system_(system) {}

  // While a message box stands the person can do nothing else.
  void SetBoxOpen(bool open) { boxOpen_ = open; }

  void Pick(const Target& target, std::string_view text);  // first entry, or tab, with the text
  void Pick(const Target& target, int index);
  void Click(const Target& target);
  void ClickRow(const Target& target, std::string_view text);
  void ClickRow(const Target& target, int row);
  void ClickBesideRows(const Target& target);
  void ArrowTo(const Target& target, int row);

  void Focus(const Target& target);
  void Leave();  // the host's window takes the focus
  void Type(const Target& target, std::string_view text);
  void Append(const Target& target, std::string_view text);
  void Paste(const Target& target, std::string_view text);
  void Erase(const Target& target, int times);
  void SetCaret(const Target& target, TextRange range);  // -1, or a place behind the text, is the text's end
  void PressKey(Key key);
  void FillAddress(const Target& target, std::string_view text);

  void DropList(const Target& target);
  void ScrollList(const Target& target, int topIndex);
  void Scroll(const Target& target, int code, std::optional<int> position);
  void Spin(const Target& target, int delta);
  void Release(const Target& target);

  void MovePointer(Point at);
  void TurnTo(int pageDialog);  // dialog::general or dialog::advanced
  void Resize(Size client);
  void CloseBox(int dialogId);      // of a pop-up's frame
  void Poke(const Target& target);  // what a program can do: it asks for no visibility

 private:
  FoundControl Reachable(const Target& target) const;
  void CheckReachable(const FoundControl& found) const;
  void CheckReachable(const Dialog& dialog) const;
  void CheckNothingBefore(const Dialog* dialog) const;
  std::string Instead(const FoundControl& found, const std::function<bool(const Control&)>& takes) const;
  FoundControl Entered(const Target& target) const;
  template <typename T>
  T& Enter(const Target& target, const char* kind) const;
  template <typename T>
  T& Reach(const Target& target, const char* kind) const;
  Dialog& PageShown() const;
  Edit& EnterAtEnd(const Target& target);

  Scene& scene_;
  Input& input_;
  Clipboard& clipboard_;
  System& system_;
  bool boxOpen_ = false;
};

}  // namespace set32

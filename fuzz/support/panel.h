// The panel in a world of memory, its host, and hands that act as the bytes of an input say.
//
// Opening the panel costs more than a dozen acts, so an input carries many.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "fuzz/support/choices.h"
#include "host/module.h"
#include "set32/pointer_word.h"
#include "tests/support/memory_files.h"
#include "tests/support/memory_world.h"

namespace set32::fuzz {

enum class Face { sheet, inlinePage };

// What is done to a control of one kind; a byte chooses among them. Seeds name them.
enum class EditAct : std::uint8_t { number, text, paste, append, backspace, caret, last };
enum class ClickAct : std::uint8_t { click, poke, last };
enum class BarAct : std::uint8_t { scroll, release, last };
enum class RowAct : std::uint8_t { click, arrow, last };
enum class ComboAct : std::uint8_t { pick, drop, last };

class Panel {
 public:
  explicit Panel(std::span<const std::uint8_t> bytes);
  ~Panel();
  Panel(const Panel&) = delete;
  Panel& operator=(const Panel&) = delete;

  Choices choices;
  MemoryFiles files;
  MemoryWorld world{files};
  MemoryHost host{world};
  CDib* preview = nullptr;

  // The run-time options: this face, and all that can be shown on it.
  void ChooseFace(Face face);
  // The host's process starts, unless it has.
  Module& TheModule();
  // The host calls. Result: whether a page stands.
  bool Open();
  // The page of the last opening, null when it is gone.
  Dialog* Page() const { return world.screen.windows.DialogOf(page_); }
  // A dialog of this template that is on the screen, the youngest of several; null when there is none.
  Dialog* Find(int dialogId) const;
  void EndProcess();

  // Any control of the dialog: for a program also a hidden or disabled one.
  enum class Hands { person, program };
  void ActAt(Dialog& dialog, Hands hands);
  void ActAtControl(Control& control);
  // A program's act at any window, its close box, or a key.
  void ActAnywhere();
  void PressKey();
  // The host's report, with a record bent by the bytes.
  void Report(Dialog& page);

 private:
  void ActAtEdit(Edit& edit);
  void ActAtBar(Control& bar);
  BoxAnswer AnswerOf(const ShownBox& box);
  void ActInside(Dialog& dialog);

  std::optional<Module> module_;
  WindowHandle page_ = 0;
  LowMemory<FrameCommand> frame_;
  int modalRuns_ = 0;
};

// Acts up to the end of the bytes, most of them at one dialog, which `bring` puts before the person; it may fail.
// After each act the record holds no value that the panel must not let in.
void RunAtDialog(Panel& panel, const std::function<Dialog*(Panel&)>& bring);

}  // namespace set32::fuzz

// What stands before the person: which dialogs, which one a name means, what is in front. Shared by the person and by
// whoever inspects.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "apps/driver/script_text.h"
#include "apps/stage/window_watch.h"
#include "platform/windows.h"
#include "resources/ids.h"

namespace set32 {

// A control with the dialog that it stands in.
struct FoundControl {
  Dialog& dialog;
  Control& control;
};

class Scene {
 public:
  explicit Scene(const WindowWatch& watch) : watch_(watch) {}

  // The page that uiFixSetting returned last.
  void SetPage(WindowHandle page) { page_ = page; }
  // The dialog that a name without a number means: dialog 102, or the one that a block of statements stands in.
  void SetDefaultDialog(int id) { default_ = id; }
  int DefaultDialog() const { return default_; }

  // The standing dialog of this template, the youngest of several; of the pages the one that the host opened last.
  // Null when there is none.
  Dialog* Find(int dialogId) const;
  // These throw NotPossible when nothing stands there.
  Dialog& Require(int dialogId) const;
  FoundControl Require(const ControlName& name) const;
  // The page that the person sees: of the sheet the one in front. Null without a page.
  Dialog* PageInFront() const;
  // The modal dialog that keeps the person from everything else; null when there is none.
  Dialog* ModalInFront() const;

  struct Focus {
    Dialog* dialog = nullptr;
    Control* control = nullptr;
  };
  std::optional<Focus> Focused() const;

  std::vector<Dialog*> Standing() const;

 private:
  std::string WhereElse(const Dialog& holder, int id) const;

  const WindowWatch& watch_;
  WindowHandle page_ = 0;
  int default_ = dialog::general;
};

}  // namespace set32

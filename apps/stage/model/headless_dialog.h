// A dialog of the model of windows.
//
// The object holds what belongs to the dialog alone; whatever can call back into a handler, and so end the dialog or
// even release this object, is done by HeadlessWindows under the window's handle.
#pragma once

#include <list>
#include <memory>
#include <string>
#include <vector>

#include "apps/stage/model/control_model.h"
#include "apps/stage/model/simple_models.h"
#include "platform/windows.h"

namespace set32 {

class HeadlessWindows;

// Controls of released dialogs, kept until the next event that isn't nested in another: one of them may be what
// raised the event in which its dialog was released. Each dialog brings its place along, since releasing one may not
// need memory.
using DialogControls = std::list<std::vector<std::unique_ptr<Control>>>;
struct Graveyard {
  int deliveries = 0;
  DialogControls controls;
};

class HeadlessDialog : public Dialog {
 public:
  HeadlessDialog(HeadlessWindows& windows, const DialogTemplate& source, DialogHandler& handler, bool modal);
  ~HeadlessDialog() override;
  HeadlessDialog(const HeadlessDialog&) = delete;
  HeadlessDialog& operator=(const HeadlessDialog&) = delete;

  int TemplateId() const override { return templateId_; }
  WindowHandle Handle() const override { return handle_; }
  bool IsAlive() const override { return handle_ != 0; }
  Control* Find(int id) const override;
  const std::vector<std::unique_ptr<Control>>& Controls() const override { return controls_; }
  Rect Place() const override { return IsAlive() ? place_ : Rect{}; }
  void Move(const Rect& place) override;
  Size ClientSize() const override;
  void SetVisible(bool visible) override;
  bool IsVisible() const override { return IsAlive() && visible_; }
  void SetEnabled(bool enabled) override;
  bool IsEnabled() const override { return IsAlive() && enabled_; }
  void SetTitle(std::string_view title) override { title_ = title; }
  std::string Title() const override { return IsAlive() ? title_ : std::string(); }
  void SetIcon(const Picture& icon) override { icon_ = icon; }
  void RemoveCaption() override;
  void TakeFocus() override;
  Control* Focused() const override;
  void Invalidate() override { dirty_ = true; }
  void Update() override;
  void CentreOverParent() override;
  void CentreOnScreen() override;
  void CentreOnPointer() override;
  Tooltip& Tips() override;
  void EndModal(int result) override;
  bool IsModal() const override { return modal_; }
  bool IsChild() const override { return child_; }
  void Destroy() override;

  // For the controls.
  enum class FocusGoes { nowhere, toTheDialog };
  void Deliver(const Event& event) const;
  void Accept() const;
  void Cancel() const;
  void FocusControl(const ControlModel& control) const;
  bool HasFocus(const ControlModel& control) const;
  void LeaveControl(const ControlModel& control, FocusGoes where) const;

  // The button that Enter clicks, null when there is none.
  ControlModel* DefaultButton() const;
  const Picture& Icon() const { return icon_; }

 private:
  friend class HeadlessWindows;
  struct FocusMemory {
    WindowHandle window = 0;
    int control = 0;
  };
  // The window is gone.
  void Perish();
  Size FrameSize() const;

  HeadlessWindows* windows_;
  std::shared_ptr<Graveyard> graveyard_;
  WindowHandle handle_ = 0;
  DialogHandler* handler_;
  int templateId_;
  bool child_;
  bool framed_;
  bool captioned_;
  bool takesFocus_;  // when it appears
  bool modal_;
  bool ended_ = false;  // the modal run
  bool open_;           // the closed hook is due once it goes
  int result_ = dialog_result::cancel;
  bool visible_ = false;
  bool enabled_ = true;
  bool dirty_ = false;
  Rect place_;
  std::string title_;
  Picture icon_;
  FocusMemory focusBefore_;  // of a pop-up: where the focus was when it appeared
  DialogControls held_{1};
  std::vector<std::unique_ptr<Control>>& controls_ = held_.front();
  std::unique_ptr<TooltipModel> tips_;
};

}  // namespace set32

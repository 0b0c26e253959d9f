// The source's dialog: the preview with its frames, the panel beside it, and the buttons Preview, Scan and Close.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "apps/data-source/core/surroundings.h"
#include "apps/data-source/scanner/scanner.h"
#include "apps/scan-desk/window/panel.h"
#include "apps/scan-desk/window/picture.h"
#include "apps/scan-desk/window/preview_view.h"
#include "platform/win32/handle.h"

namespace data_source {

// What a person's buttons do.
struct DialogActs {
  // Result: a sentence that says why nothing is scanned, else empty.
  std::function<std::string(const set32::ScanSettings& settings, const std::vector<Area>& areas)> scan;
  std::function<void()> close;
};

namespace button {
inline constexpr WORD scan = IDOK, close = IDCANCEL, preview = 100;
}

extern const wchar_t dialogClass[];

class DialogWindow {
 public:
  DialogWindow(const DialogOrder& order, const Scanner& scanner, const DialogActs& acts);
  ~DialogWindow();
  DialogWindow(const DialogWindow&) = delete;
  DialogWindow& operator=(const DialogWindow&) = delete;

  bool Open(std::wstring& trouble);
  void SetBusy(bool isBusy);
  bool TakeEvent(MSG& message);

  // Called by the window.
  LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void OnGone();

 private:
  bool MakeWindow();
  bool MakeControls();
  HWND MakeButton(const wchar_t* text, WORD id, DWORD style) const;
  bool OpenPanel(std::wstring& trouble);
  void LayFrames();
  std::vector<Area> Areas() const;

  void OnCommand(WORD id);
  void OnFocus();
  void Scan();
  void ShowPreview();
  void Lay();
  int PanelHeight() const;

  HWND owner_;
  bool isModal_;
  bool onlySettings_;
  const Negotiation& agreed_;
  const Scanner& scanner_;
  DialogActs acts_;

  scan_desk::Picture picture_;
  scan_desk::Panel panel_;  // its library goes after the windows
  scan_desk::PreviewView preview_;
  set32::Size least_;  // of the panel
  set32::win32::OwnedFont font_;
  HWND place_ = nullptr;  // of the panel; ends before the window
  HWND focus_ = nullptr;  // where it was when the window was left
  std::vector<HWND> buttons_;
  int laidHeight_ = 0;
  set32::win32::OwnedWindow window_;
};

// The same as the data source's rules know it; there is a window while it stands.
class WindowedDialog final : public SourceDialog {
 public:
  WindowedDialog(const Scanner& scanner, DialogActs acts) : scanner_(scanner), acts_(std::move(acts)) {}

  bool Open(const DialogOrder& order, std::string& trouble) override;
  void Close() override;
  void SetBusy(bool isBusy) override;
  bool TakeEvent(twain::Handle event) override;

 private:
  const Scanner& scanner_;
  DialogActs acts_;
  std::unique_ptr<DialogWindow> window_;
};

}  // namespace data_source

// The desk: the preview on the left, the panel on the right, below them a log of messages that can be hidden.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "apps/scan-desk/window/panel.h"
#include "apps/scan-desk/window/picture.h"
#include "apps/scan-desk/window/preview_view.h"
#include "platform/win32/handle.h"

namespace scan_desk {

// Tells the person something in a message box and waits.
void ShowBox(HWND owner, const std::wstring& text);

struct DeskSetup {
  std::wstring library = L"set32.dll";  // a path, or a name that lies beside this program
  PanelChoices choices = {};
  std::function<void(HWND owner, const std::wstring& text)> say = ShowBox;
};

class DeskWindow {
 public:
  explicit DeskWindow(DeskSetup setup = {});
  DeskWindow(const DeskWindow&) = delete;
  DeskWindow& operator=(const DeskWindow&) = delete;

  // With a first picture, or white paper where there is none or it can't be read. False when there is no window or no
  // panel. The person was told of whatever failed.
  bool Create(const std::wstring& pictureFile);
  HWND Window() const { return window_.Get(); }
  // The panel's window for messages; null while none stands.
  HWND Page() const { return panel_.Page(); }
  const set32::CDib& Preview() const { return picture_.Dib(); }
  // A loop that knows nothing of dialogs offers each message first. Result: whether it was one of the desk's keys.
  bool TakeKey(MSG& message) const;

  // Shows another picture. The person was told when it can't be read; the old one stays.
  void ShowPicture(const std::wstring& path);

  // Called by the window.
  LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void OnGone();

 private:
  bool MakeWindow();
  bool MakePanes();
  HWND MakeChild(DWORD extendedStyle, const wchar_t* kind, DWORD style) const;
  SIZE LeastWindow() const;

  void OnCommand(WORD id);
  bool OnActivate(WPARAM wParam);
  void AskForPicture();
  void SwitchLog();
  void SwitchPanel();
  void Choose(const PanelChoices& choices);
  bool OpenPanel();
  void ClosePanel();
  void TurnPane(int step);
  std::vector<HWND> Panes() const;

  void Lay();
  void PlacePanel();
  void ShowState() const;
  void ShowTitle() const;
  void Log(const std::wstring& line) const;

  DeskSetup setup_;
  Picture picture_;
  Panel panel_;  // its library goes after the windows
  PreviewView preview_;
  std::wstring file_;
  std::wstring scanner_;
  set32::win32::OwnedAccelerators keys_;
  set32::win32::OwnedFont font_;
  set32::Size least_;  // of the panel
  int panelHeight_ = 0;
  bool showsLog_ = true;
  bool sizing_ = false;
  // The panes end with the window; the panel ends with its place.
  HWND place_ = nullptr;
  HWND log_ = nullptr;
  HWND focus_ = nullptr;  // where it was when the window was left
  set32::win32::OwnedWindow window_;
};

}  // namespace scan_desk

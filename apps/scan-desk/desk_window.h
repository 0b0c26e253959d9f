// The desk: the preview on the left, the panel on the right, below them a log of messages that can be hidden.
#pragma once

#include <windows.h>

#include <string>

#include "apps/scan-desk/panel.h"
#include "apps/scan-desk/picture.h"
#include "apps/scan-desk/preview_view.h"

namespace scan_desk {

class DeskWindow {
 public:
  DeskWindow();
  ~DeskWindow();
  DeskWindow(const DeskWindow&) = delete;
  DeskWindow& operator=(const DeskWindow&) = delete;

  // With a first picture, or white paper. False when there is no panel; the person was told.
  bool Create(const std::wstring& pictureFile);
  HWND Window() const { return window_; }
  HACCEL Keys() const { return keys_; }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void OnCommand(WORD id);
  bool MakeWindows();
  void MakeFont();
  void Lay();
  void PlacePanel();
  void OpenPicture();
  void ShowPicture(const std::wstring& path);
  void SwitchLog();
  void SwitchPanel();
  void MakePlace();
  void ShowTitle();
  void NextPane();
  void Log(const std::wstring& line);
  void Say(const std::wstring& text) const;

  Picture picture_;
  Panel panel_;
  PreviewView preview_;
  std::wstring file_;
  std::wstring scanner_;
  HWND window_ = nullptr;
  HWND place_ = nullptr;  // holds the panel
  HWND log_ = nullptr;
  HFONT font_ = nullptr;
  HACCEL keys_ = nullptr;
  HWND focus_ = nullptr;  // where it was when the window was left
  bool showsLog_ = true;
  bool sizing_ = false;
  set32::Size panelSize_;
};

}  // namespace scan_desk

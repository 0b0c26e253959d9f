// The preview with its frames: what the panel calls the host's window. It takes the panel's messages and paints the
// picture that the panel renders; a person draws, moves and deletes frames on it by mouse or keyboard.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "apps/scan-desk/frames.h"
#include "apps/scan-desk/panel.h"
#include "apps/scan-desk/picture.h"

namespace scan_desk {

class PreviewView {
 public:
  // `heard` gets a line for each message that passes between panel and host.
  PreviewView(Picture& picture, Panel& panel, std::function<void(const std::wstring&)> heard);
  PreviewView(const PreviewView&) = delete;
  PreviewView& operator=(const PreviewView&) = delete;

  bool Create(HWND parent);
  HWND Window() const { return window_; }
  // Another picture lies there.
  void PictureChanged();

 private:
  enum class Drag { none, draws, moves };

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnPanelMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void OnFrameTold(const set32::ScanSettings& settings);
  void OnPaint();
  void Paint(HDC dc);
  void OnButtonDown(set32::Point at);
  void OnPointer(set32::Point at);
  void OnButtonUp();
  void OnKey(WPARAM key);
  void NewFrame();
  void DeleteFrame();
  void Tell(int index, std::uint32_t action);

  // Between the window's pixels and the picture's.
  set32::Rect Shown() const;
  set32::Point ToPicture(set32::Point at) const;
  RECT ToWindow(const set32::Rect& frame) const;

  Picture& picture_;
  Panel& panel_;
  std::function<void(const std::wstring&)> heard_;
  Frames frames_;
  HWND window_ = nullptr;
  Drag drag_ = Drag::none;
  set32::Point dragStart_;
  set32::Rect dragged_;
};

}  // namespace scan_desk

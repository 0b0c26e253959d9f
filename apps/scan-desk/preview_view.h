// The preview with its frames: what the panel calls the host's window. It takes the panel's messages and paints the
// picture that the panel renders; a person draws, moves and deletes frames on it by mouse or keyboard.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "apps/scan-desk/frames/frames.h"
#include "apps/scan-desk/frames/view_scale.h"
#include "apps/scan-desk/panel.h"
#include "apps/scan-desk/picture.h"

namespace scan_desk {

class PreviewView {
 public:
  using Told = std::function<void(const std::wstring&)>;

  // `heard` gets a line for each message that passes between panel and host, `deviceTold` the chosen scanner (empty
  // for none), `leave` is called by the Tab key.
  PreviewView(Picture& picture, Panel& panel, Told heard, Told deviceTold, std::function<void()> leave);
  PreviewView(const PreviewView&) = delete;
  PreviewView& operator=(const PreviewView&) = delete;

  bool Create(HWND parent);
  HWND Window() const { return window_; }
  // Another picture lies there: one frame over it, of which a standing panel is told.
  void PictureChanged();
  // Tells the panel that the automatic crop found the current frame's size.
  void ReportAutoCrop();

 private:
  enum class Drag { none, draws, moves, resizes };

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

  bool OnCursor() const;
  // Window pixels for a length at 96 dots an inch.
  int Wide(int pixels) const;
  set32::Rect Shown() const;
  RECT Placed(const set32::Rect& frame) const;
  Grip GripUnder(set32::Point at) const;

  Picture& picture_;
  Panel& panel_;
  Told heard_;
  Told deviceTold_;
  std::function<void()> leave_;
  Frames frames_;
  HWND window_ = nullptr;
  Drag drag_ = Drag::none;
  set32::Point dragStart_;
  set32::Rect dragged_;
  Grip grip_;
};

}  // namespace scan_desk

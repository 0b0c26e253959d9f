// The preview with its frames: what the panel calls the host's window. It takes the panel's messages and paints the
// picture that the panel renders; a person draws, moves, sizes and deletes frames on it by mouse or keyboard.
#pragma once

#include <windows.h>

#include <functional>
#include <span>
#include <string>

#include "apps/scan-desk/frames/frame_drag.h"
#include "apps/scan-desk/frames/frames.h"
#include "apps/scan-desk/frames/view_scale.h"
#include "apps/scan-desk/window/panel.h"
#include "apps/scan-desk/window/picture.h"

namespace scan_desk {

class PreviewView {
 public:
  using Told = std::function<void(const std::wstring&)>;

  // `heard` gets a line for each message that passes between panel and host, `deviceTold` the chosen scanner (empty
  // for none). All must outlive the window.
  PreviewView(Picture& picture, Panel& panel, Told heard, Told deviceTold);
  PreviewView(const PreviewView&) = delete;
  PreviewView& operator=(const PreviewView&) = delete;

  // As a child, which ends with its parent. False when the system has no window to give.
  bool Create(HWND parent);
  HWND Window() const { return window_; }
  // Once no such window is left, for a module that may be unloaded before its program ends.
  static void ForgetClass();
  void SetFont(HFONT font) { font_ = font; }
  // Another picture lies there: one frame over it, of which a standing panel is told.
  void PictureChanged();
  // These frames in the place of all others, as if a person had drawn them one behind the other. Nothing while no
  // panel stands.
  void LayFrames(std::span<const set32::Rect> frames);
  const Frames& Laid() const { return frames_; }
  // Crops the current frame to what lies on the picture, as the scanner does, and tells the panel.
  void ReportAutoCrop();
  // Whether the panel hears no when it asks for another paper source, which the inline face does.
  void RefuseSources(bool refuses) { refusesSources_ = refuses; }
  bool RefusesSources() const { return refusesSources_; }

  // Called by the window.
  LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void OnGone() { window_ = nullptr; }

 private:
  // What the panel says.
  LRESULT OnPanelMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void OnAreaTold(const set32::ScanSettings& settings);
  void OnFrameCommand(const set32::ScanSettings& settings);
  void OnTabTold(int index);
  void LayFrame();
  set32::Rect RecordedFrame(const set32::ScanSettings& settings) const;

  // What the person does.
  void OnButtonDown(set32::Point at, bool wantsNew);
  void OnPointer(set32::Point at);
  void OnButtonUp();
  void OnCaptureLost();
  void OnKey(WPARAM key);
  bool OnCursor() const;
  void NewFrame();
  void DeleteFrame();
  void SelectFrame(int index);

  void Tell(const FrameChange& change);
  void TellOfLoneFrame();
  void OnPaint();
  void Repaint() const;

  // Window pixels for a length at 96 dots an inch.
  int Wide(int pixels) const;
  set32::Rect Shown() const;
  set32::Point InPicture(set32::Point at) const { return ToPicture(at, Shown(), picture_.Area()); }
  Grip GripUnder(set32::Point at) const;

  Picture& picture_;
  Panel& panel_;
  Told heard_;
  Told deviceTold_;
  Frames frames_;
  FrameDrag drag_;
  bool refusesSources_ = false;
  HWND window_ = nullptr;
  HFONT font_ = nullptr;  // the desk's
};

}  // namespace scan_desk

// The front end of the adjustments that stands beside a page: the Advanced page of the sheet face, or the advanced
// dialog of the inline face.
//
// Declared beneath both, so that a page tells its front what happened without knowing which one it is. Each operation
// names a moment in the page's sequences; a front answers those that concern it, and all of them also while it has no
// window. Any may send messages to the host, who may end the page meanwhile. Host's thread only.
#pragma once

namespace set32 {

class AdjustmentFront {
 public:
  virtual ~AdjustmentFront() = default;

  // A person's choice of mode is in the record; nothing has followed from it yet.
  virtual void OnModeSet() {}
  // The resolution list of a newly chosen mode is about to be built.
  virtual void OnBeforeResolutionList() {}
  // The preview shows a newly chosen mode.
  virtual void OnPreviewDone() {}
  // The host knows of a choice of mode other than JPEG.
  virtual void OnModeTold() {}

  // The panel was made to agree with the record.
  virtual void OnRefreshed() {}
  // The person chose or typed a resolution.
  virtual void OnResolutionChanged() {}
  // The controls of a page turn to the paper source that is in the record now.
  virtual void OnSourceChanged() {}
};

}  // namespace set32

// What a dialog hears of its controls, and when.
//
// The contract below was recorded on real controls; the logic leans on it, and the contract suite holds every
// implementation against it. "P" is a change made by the program, "U" a person's.
//
//   edit    P text set, also to the same text; selection replaced   editUpdate, then editChanged
//   edit    U a character that the edit takes                       editUpdate, then editChanged
//   edit    P selection or caret set                                nothing
//   edit    focus moves to another control                          focusLost on the old, then focusGained on the new
//   any     P focused control disabled, hidden or destroyed         focusLost (edits and combos tell their parent)
//   combo   P entries added, inserted, deleted, emptied; selected   nothing
//   combo   U an entry picked or reached by an arrow key            selectionChosen, at either end as well
//   combo   entry inserted before the selection / an earlier one    the selection stays with its entry (+1 / -1);
//           deleted / the selected one deleted                      becomes -1
//   combo   P selection set past the end                            becomes -1
//   combo   P selection set                                         scrolled into view as little as needed
//   combo   U list about to open, list closed                       dropDown; closeUp
//   check, radio  P mark set                                        nothing
//   button  U click, also a click message of a program              clicked; a disabled one takes no person's click
//   radio   U an arrow key on another of its group                  clicked, on the one that it leads to
//   list    P rows inserted; scrolled into view                     nothing
//   list    another row becomes selected and focused                rowChanged: old row loses selection; old row
//                                                                   loses focus; new row gains both
//   list    P state set that the row already has                    nothing
//   list    P selected row deleted                                  rowChanged: row loses both; the row behind it has
//                                                                   the focus from then on
//   list    P all rows deleted                                      nothing
//   list    U click on a row                                        the changes above, if any, then rowClicked
//   list    U click beside the rows                                 rowChanged: selected row loses selection, keeps
//                                                                   focus; then rowClicked with row -1
//   tab     P tabs added, deleted, current set                      nothing; the first tab added becomes current;
//                                                                   deleting the current one, or all, leaves -1
//   tab     U tab chosen                                            tabChanging, tabChanged
//   slider  P position or range set                                 nothing; the position is held to the range
//   slider  U line, page, thumb                                     scrolled with its code (thumb codes carry the
//                                                                   position), then scrolled with code 8
//   slider  U a key                                                 it moves, then scrolled with its code, unless it
//                                                                   stood at that end; then scrolled 8
//   slider  U the mouse wheel                                       it stays; for each notch scrolled with code 1
//                                                                   (away from the person) or 0, then with code 8
//   scroll  P position or range set                                 nothing
//   spin    P position set to another value, with a buddy           on the buddy: editUpdate, editChanged
//   spin    U arrow                                                 spinDelta (may be refused), on the buddy:
//                                                                   editUpdate, editChanged; then scrolled 4 and 8
//   window  a top-level window destroyed while an edit in it        focusLost on that edit first (a child window
//           has the focus                                           raises nothing)
//   dialog  P a modal one, or another pop-up, opens over a          focusLost on the edit, focusGained in the dialog;
//           focused edit; it ends or is hidden                      focusLost there, and the focus returns without an
//                                                                   event
//   edit    focus moves on while the old one hears focusLost        focusLost also on the one where it was to go
//
// A report that a row lost its state is not a pick.
#pragma once

#include <cstdint>

#include "platform/control.h"
#include "platform/geometry.h"

namespace set32 {

enum class EventKind {
  clicked,          // button, check box, radio button
  editUpdate,       // edit: the text is about to be shown
  editChanged,      // edit: the text was changed
  focusGained,      // edits and combos
  focusLost,        // edits and combos
  selectionChosen,  // combo
  dropDown,         // combo
  closeUp,          // combo
  rowChanged,       // list: row, before, after
  rowClicked,       // list: row, -1 beside the rows
  tabChanging,      // tab bar
  tabChanged,       // tab bar
  scrolled,         // slider, scroll bar, spin: code, position
  released,         // slider: the mouse button went up over it
  spinDelta,        // spin: delta; *refuse may be set
  paint,            // the control wants drawing (frames): the dialog repaints, controlId 0
};

// Codes of a scroll event, the window system's own.
namespace scroll_code {
inline constexpr int lineLeft = 0;
inline constexpr int lineRight = 1;
inline constexpr int pageLeft = 2;
inline constexpr int pageRight = 3;
inline constexpr int thumbPosition = 4;
inline constexpr int thumbTrack = 5;
inline constexpr int leftEnd = 6;
inline constexpr int rightEnd = 7;
inline constexpr int endScroll = 8;
}  // namespace scroll_code

// The thumb's codes carry the position where it stands, the others none.
constexpr bool CarriesPosition(int code) {
  return code == scroll_code::thumbPosition || code == scroll_code::thumbTrack;
}

struct Event {
  EventKind kind;
  int controlId = 0;
  int row = -1;
  RowState before = {};
  RowState after = {};
  int code = 0;
  int position = 0;
  int delta = 0;
  bool* refuse = nullptr;
};

}  // namespace set32

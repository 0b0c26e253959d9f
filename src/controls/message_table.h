// A window class says what it answers in one table of {event, control id, member} rows at the top of its file; the
// reader sees the whole behaviour of a page there before any handler.
#pragma once

#include <span>

#include "platform/events.h"

namespace set32 {

template <typename T>
struct MessageRow {
  EventKind event;
  int controlId;
  void (T::*handler)(const Event&);
};

// Calls the first row that fits. Result: whether there was one.
template <typename T>
bool Dispatch(T& object, std::span<const MessageRow<T>> rows, const Event& event) {
  for (const MessageRow<T>& row : rows) {
    if (row.event != event.kind || row.controlId != event.controlId) continue;
    (object.*row.handler)(event);
    return true;
  }
  return false;
}

}  // namespace set32

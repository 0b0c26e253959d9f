// Bitmap buttons: a button that shows a picture for each of its states.
#pragma once

#include "platform/control.h"

namespace set32 {

// Gives a button the pictures that its caption names: the caption and U (up), D (down), F (focused) or X (disabled).
// A picture that isn't there stays empty; the button takes its size from the first. Host's thread only.
void AttachBitmaps(PictureButton& button);

}  // namespace set32

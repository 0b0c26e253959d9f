#include "controls/bitmap_button.h"

#include <string>

#include "resources/pictures.h"

namespace set32 {

void AttachBitmaps(PictureButton& button) {
  const std::string name = button.Text();
  button.SetPictures({
      .up = LoadPicture(name + 'U'),
      .down = LoadPicture(name + 'D'),
      .focused = LoadPicture(name + 'F'),
      .disabled = LoadPicture(name + 'X'),
  });
}

}  // namespace set32

#include "adjust/image_library.h"

#include "adjust/tone_tables.h"

namespace set32 {

void LibraryBitmap::TakeOverToned(const PictureView& picture, const PixelTables& tables) {
  ToneRows(picture, tables);
  TakeOver(picture);
}

}  // namespace set32

// What a person chooses before the panel is opened.
#pragma once

namespace scan_desk {

enum class Face { sheet, inlinePage };

enum class Search {
  usb,           // nothing is sent to any other machine
  usbAndNetwork  // a search is heard by every machine in the network
};

struct PanelChoices {
  Face face = Face::sheet;
  Search search = Search::usb;
  // Of the inline face, as the device can do it.
  bool jpegModes = true;
  int outputBits = 48;  // 36, 42 or 48
  // Of the sheet face: more than 8 bits a band can be wanted.
  bool highBits = false;
  bool operator==(const PanelChoices&) const = default;
};

}  // namespace scan_desk

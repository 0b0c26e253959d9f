#include "apps/scan-desk/frames/desk_layout.h"

#include <algorithm>

namespace scan_desk {

DeskLayout LayDesk(set32::Size client, set32::Size panel, bool showsLog) {
  constexpr int logShare = 6;
  const int logHeight =
      showsLog ? std::clamp(client.height / logShare, 0, std::max(client.height - panel.height, 0)) : 0;
  const int height = std::max(client.height - logHeight, 0);
  const int across = std::max(client.width - panel.width, 0);
  return {{0, 0, across, height},
          {across, 0, across + panel.width, height},
          {0, height, std::max(client.width, 0), height + logHeight}};
}

}  // namespace scan_desk

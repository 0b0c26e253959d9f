// Files that a person at a prompt may have meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace set32 {

// The files and folders whose paths begin so, a folder with a '/' behind it; in order. Hidden ones only when their
// dot was written.
std::vector<std::string> FilesBeginning(std::string_view path);

// Bitmaps in a folder ("" is the working one, else with its separator), each with the folder in front.
std::vector<std::string> PicturesIn(const std::string& folder);

// Scripts in the folder of a path.
std::vector<std::string> ScriptsNear(const std::string& path);

}  // namespace set32

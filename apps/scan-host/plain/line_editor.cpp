#include "apps/scan-host/line_editor.h"

#include <iostream>

namespace set32::scan_host {

struct LineEditor::Terminal {};

LineEditor::LineEditor(Completer) {}

LineEditor::~LineEditor() = default;

std::optional<std::string> LineEditor::Read(const std::string& prompt) {
  std::cout << prompt << std::flush;
  std::string line;
  if (std::getline(std::cin, line)) return line;
  std::cout << '\n';
  return {};
}

}  // namespace set32::scan_host

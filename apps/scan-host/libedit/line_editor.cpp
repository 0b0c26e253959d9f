#include "apps/scan-host/line_editor.h"

#include <histedit.h>

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <iostream>

#include "apps/driver/character_grid.h"
#include "platform/utf8.h"

namespace set32::scan_host {

namespace {

struct EndsEditing {
  void operator()(EditLine* edit) const { el_end(edit); }
};
struct EndsHistory {
  void operator()(History* history) const { history_end(history); }
};

// Ctrl-C abandons the line; the interrupted read is told from the end of input by it.
volatile std::sig_atomic_t interrupted = 0;

void OnInterrupt(int) {
  interrupted = 1;
}

// While a line is read, a signal ends the read.
class Interrupts {
 public:
  Interrupts() {
    interrupted = 0;
    struct sigaction action {};
    action.sa_handler = OnInterrupt;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, &before_);
  }
  ~Interrupts() { sigaction(SIGINT, &before_, nullptr); }
  Interrupts(const Interrupts&) = delete;
  Interrupts& operator=(const Interrupts&) = delete;

 private:
  struct sigaction before_ {};
};

int CountCharacters(std::string_view text) {
  int count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(utf8::CharacterLength(text));
  return count;
}

void PrintCandidates(const std::vector<Candidate>& candidates) {
  constexpr int widest = 40;
  constexpr std::size_t most = 60;
  int width = 0;
  for (const Candidate& candidate : candidates) width = std::max(width, std::min(CellWidth(candidate.text), widest));
  std::cout << '\n';
  for (std::size_t i = 0; i < std::min(candidates.size(), most); ++i) {
    const int missing = std::max(0, width - CellWidth(candidates[i].text));
    std::cout << "  " << candidates[i].text << std::string(static_cast<std::size_t>(missing) + 2, ' ')
              << candidates[i].note << '\n';
  }
  if (candidates.size() > most) std::cout << "  and " << candidates.size() - most << " more\n";
  std::cout << std::flush;
}

}  // namespace

struct LineEditor::Terminal {
  std::unique_ptr<History, EndsHistory> history;
  std::unique_ptr<EditLine, EndsEditing> edit;
  Completer complete;
  std::string prompt;

  static char* Prompt(EditLine* edit) { return Of(edit).prompt.data(); }
  static unsigned char OnTab(EditLine* edit, int) { return Of(edit).CompleteLine(); }

  static Terminal& Of(EditLine* edit) {
    void* owner = nullptr;
    el_get(edit, EL_CLIENTDATA, &owner);
    return *static_cast<Terminal*>(owner);
  }

  unsigned char CompleteLine() {
    const LineInfo* info = el_line(edit.get());
    const std::string line(info->buffer, info->cursor);
    const Completion found = complete(line);
    if (found.candidates.empty()) return CC_REFRESH_BEEP;
    const bool isOnly = found.candidates.size() == 1;
    const std::string word = line.substr(found.begin);
    std::string whole = found.Common();
    if (isOnly && found.candidates.front().ends) whole += ' ';
    // Letter case apart, all of them begin with the word; what adds nothing is listed.
    if (whole.size() > word.size()) {
      el_deletestr(edit.get(), CountCharacters(word));
      return el_insertstr(edit.get(), whole.c_str()) == 0 ? CC_REFRESH : CC_REFRESH_BEEP;
    }
    PrintCandidates(found.candidates);
    return CC_REDISPLAY;
  }

  void Remember(const std::string& line) {
    HistEvent event;
    const bool isNew = history_(&event, H_FIRST) != 0 || line != WithoutEnd(event.str);
    if (!line.empty() && isNew) history_(&event, H_ENTER, line.c_str());
  }

  static std::string WithoutEnd(std::string line) {
    line.erase(line.find_last_not_of("\r\n") + 1);
    return line;
  }

 private:
  template <typename... Arguments>
  int history_(HistEvent* event, int what, Arguments... arguments) {
    return ::history(history.get(), event, what, arguments...);
  }
};

LineEditor::LineEditor(Completer complete) : terminal_(std::make_unique<Terminal>()) {
  constexpr int remembered = 1000;
  if (std::setlocale(LC_CTYPE, "C.UTF-8") == nullptr) std::setlocale(LC_CTYPE, "");
  terminal_->complete = std::move(complete);
  terminal_->history.reset(history_init());
  HistEvent event;
  ::history(terminal_->history.get(), &event, H_SETSIZE, remembered);

  EditLine* edit = el_init("scan-host", stdin, stdout, stderr);
  if (edit == nullptr) return;
  terminal_->edit.reset(edit);
  el_set(edit, EL_CLIENTDATA, terminal_.get());
  el_set(edit, EL_PROMPT, &Terminal::Prompt);
  el_set(edit, EL_EDITOR, "emacs");
  el_set(edit, EL_SIGNAL, 1);
  el_set(edit, EL_HIST, ::history, terminal_->history.get());
  el_set(edit, EL_ADDFN, "complete-statement", "Completes the statement", &Terminal::OnTab);
  el_set(edit, EL_BIND, "^I", "complete-statement", nullptr);
  el_set(edit, EL_BIND, "^R", "em-inc-search-prev", nullptr);
  el_source(edit, nullptr);
}

LineEditor::~LineEditor() = default;

std::optional<std::string> LineEditor::Read(const std::string& prompt) {
  if (!terminal_->edit) return {};
  const Interrupts interrupts;
  terminal_->prompt = prompt;
  int count = 0;
  const char* text = el_gets(terminal_->edit.get(), &count);
  if (text == nullptr || count <= 0) {
    std::cout << '\n' << std::flush;
    if (interrupted == 0) return {};
    el_reset(terminal_->edit.get());
    return std::string();
  }
  std::string line = Terminal::WithoutEnd(text);
  terminal_->Remember(line);
  return line;
}

}  // namespace set32::scan_host

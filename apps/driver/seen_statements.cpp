// What is seen, and what must be.
#include <algorithm>

#include "apps/driver/interpreter.h"
#include "apps/driver/not_possible.h"
#include "apps/driver/possible.h"
#include "apps/driver/statement_form.h"
#include "apps/driver/statement_table.h"
#include "apps/driver/suggestions.h"
#include "resources/dialogs.h"

namespace set32 {

namespace {

// A form on as many lines as it needs, broken between its alternatives.
std::string Wrapped(std::string_view form) {
  constexpr std::size_t width = 100;
  constexpr std::string_view indent = "    ";
  constexpr std::string_view bar = " | ";
  std::string text;
  std::size_t lineSize = 0;
  while (!form.empty()) {
    const std::size_t end = std::min(form.find(bar), form.size());
    const std::string_view piece = form.substr(0, end == form.size() ? end : end + bar.size());
    if (lineSize + piece.size() > width) {
      text += '\n';
      text += indent;
      lineSize = indent.size();
    }
    text += piece;
    lineSize += piece.size();
    form.remove_prefix(piece.size());
  }
  return text;
}

}  // namespace

void Interpreter::ExpectHeard() {
  std::vector<std::string> expected;
  for (const SourceLine& line : ReadBlock().lines) {
    std::string words = Normalised(line.text);
    if (!words.empty()) expected.push_back(std::move(words));
  }
  const std::vector<std::string>& heard = session_.Host().Heard();
  if (expected == heard) return;
  std::string why = "heard otherwise:";
  for (const std::string& line : heard) why += "\n  " + line;
  throw NotPossible(why);
}

void Interpreter::Expect(Words words) {
  if (words.size() == 1 && !words[0].quoted && words[0].text == "heard") return ExpectHeard();
  if (SameWord(words[0].text, "show")) words = words.subspan(1);
  std::size_t is = 0;
  while (is < words.size() && (words[is].quoted || !SameWord(words[is].text, "is"))) ++is;
  if (is == words.size()) throw NotPossible("`is` is missing", "the form is: expect SHOWN is LINE");
  std::vector<Word> what(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(is));
  FoldKeywords(FindStatement("show")->form, what);
  const Shown shown = session_.Eye().Show(what);
  if (!shown.oneLine) throw NotPossible("what prints many lines can't be expected");
  const std::string seen = Normalised(std::string_view(shown.lines.front()).substr(shown.headLength));
  const std::string_view line = current_.text;
  const std::size_t begin = words[is].end;
  const std::string expected = Normalised(line.substr(begin));
  if (expected != seen) throw NotPossible("expected " + expected + ", saw " + seen);
}

void Interpreter::Show(Words words) {
  for (const std::string& line : session_.Eye().Show(words).lines) Print(line);
}

void Interpreter::Help(Words words) {
  if (!words.empty()) return HelpFor(words[0].text);
  ListStatements();
  Scene& scene = session_.TheScene();
  const bool onPage = scene.DefaultDialog() == dialog::general;
  if (Dialog* front = onPage ? scene.PageInFront() : scene.Find(scene.DefaultDialog())) {
    Print("");
    ListControls(*front);
  }
}

void Interpreter::ListStatements() {
  constexpr std::size_t column = 44;
  for (const Statement& statement : Statements()) {
    std::string line = Wrapped(statement.form);
    if (line.size() < column) {
      line.append(column - line.size(), ' ');
    } else {
      line += '\n' + std::string(column, ' ');
    }
    Print(line + std::string(statement.meaning));
  }
}

void Interpreter::ListControls(Dialog& dialog) {
  constexpr std::size_t idColumn = 9, kindColumn = 9;
  const auto padded = [](std::string text, std::size_t width) {
    text.append(text.size() < width ? width - text.size() : 1, ' ');
    return text;
  };
  const Scene& scene = session_.TheScene();
  Print((dialog.IsChild() ? "Page " : "Dialog ") + std::to_string(dialog.TemplateId()) + ' ' + Quote(dialog.Title()) +
        ':');
  for (const auto& control : dialog.Controls()) {
    const bool hasName = control->Kind() != ControlKind::label && control->Kind() != ControlKind::group;
    if (!control->Exists() || !control->IsVisible() || !hasName) continue;
    Print("  " + padded(IdOf(scene, dialog, *control), idColumn) + padded(KindName(control->Kind()), kindColumn) +
          NameOf(dialog, *control) + (control->IsEnabled() ? "" : " (disabled)"));
  }
}

// A statement, a dialog that stands, or a control.
void Interpreter::HelpFor(const std::string& word) {
  if (const Statement* statement = FindStatement(word)) {
    return Print(std::string(statement->form) + "\n    " + std::string(statement->meaning));
  }
  Scene& scene = session_.TheScene();
  const auto name = ParseControlName({word, false, 0, 0});
  if (!name) return Print("There is no statement " + Quote(word) + "; " + Suggest(word, StatementNames()));
  if (!name->dialog && FindDialog(name->id) != nullptr) return ListControls(scene.Require(name->id));
  const FoundControl found = scene.Require(*name);
  Print(IdOf(scene, found.dialog, found.control) + ' ' + NameOf(found.dialog, found.control) + ": " +
        session_.Eye().Describe(found.control));
}

}  // namespace set32

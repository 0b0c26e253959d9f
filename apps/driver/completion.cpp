#include "apps/driver/completion.h"

#include <algorithm>

#include "apps/driver/interpreter.h"
#include "apps/driver/nearby_files.h"
#include "apps/driver/not_possible.h"
#include "apps/driver/possible.h"
#include "apps/driver/settings_fields.h"
#include "apps/driver/statement_form.h"
#include "apps/driver/statement_table.h"
#include "apps/driver/suggestions.h"
#include "platform/utf8.h"

namespace set32 {

namespace {

// The line's finished words, and the one that is being written, which may be empty.
struct Written {
  std::vector<Word> before;
  Word last;
};

std::vector<Word> SplitOpenWords(std::string_view line) {
  try {
    return SplitWords(line);
  } catch (const NotPossible&) {
    return SplitWords(std::string(line) + '"');  // a quote is being written
  }
}

Written Split(std::string_view line) {
  Written written;
  try {
    written.before = SplitOpenWords(line);
  } catch (const NotPossible&) {
    return written;
  }
  if (!written.before.empty() && written.before.back().end >= line.size()) {
    written.last = std::move(written.before.back());
    written.before.pop_back();
  } else {
    written.last.begin = line.size();
  }
  return written;
}

template <typename... Kinds>
bool IsOneOf(const Control& control) {
  return ((dynamic_cast<const Kinds*>(&control) != nullptr) || ...);
}

// Whether a person could name the control in this statement.
bool Takes(std::string_view statement, const Control& control) {
  if (statement == "show" || statement == "expect" || statement == "help") return true;
  if (!control.IsVisible() || !control.IsEnabled()) return false;
  if (statement == "pick") return IsOneOf<Combo, TabBar>(control);
  if (statement == "click" || statement == "poke") return IsOneOf<Button, CheckButton>(control);
  if (statement == "row" || statement == "arrow") return IsOneOf<List>(control);
  if (statement == "drop" || statement == "top") return IsOneOf<Combo>(control);
  if (statement == "scroll") return IsOneOf<Slider, ScrollBar>(control);
  if (statement == "release") return IsOneOf<Slider>(control);
  if (statement == "spin") return IsOneOf<Spin>(control);
  if (statement == "address") return IsOneOf<Address>(control);
  if (statement == "focus") return TakesFocus(control.Kind());
  return IsOneOf<Edit>(control);
}

class Completer {
 public:
  Completer(const Scene& scene, std::string_view statement, Written written, const std::string& scriptFolder)
      : scene_(scene), statement_(statement), written_(std::move(written)), scriptFolder_(scriptFolder) {}

  // Candidates for a word of a form.
  void Offer(const std::string& formWord) {
    if (IsKeyword(formWord)) return Add({formWord, {}, true});
    if (formWord == "ID") return OfferControls();
    if (formWord == "TEXT" || formWord == "#INDEX") return OfferEntries(formWord == "TEXT");
    if (formWord == "FIELD") return OfferNames(FieldNames(), "");
    if (formWord == "FIELD=VALUE") return OfferNames(FieldNames(), "=");
    if (formWord == "NAME=VALUE") return OfferNames({{"restrictedMaxDpi", "sourceCaps"}}, "=");
    if (formWord == "FILE") return OfferFiles();
    if (formWord == "DIALOG") return OfferDialogs();
    if (const std::size_t sign = formWord.find('='); sign != std::string::npos && formWord[0] >= 'a')
      Add({formWord.substr(0, sign + 1), {}, false});
  }

  void OfferNames(const std::vector<std::string>& names, const std::string& behind) {
    for (const std::string& name : names) Add({name + behind, {}, behind.empty()});
  }

  Completion Result() && { return {written_.last.begin, std::move(found_)}; }

 private:
  void Add(Candidate candidate) {
    const bool isQuoted = candidate.text.starts_with('"');
    const std::string wanted = isQuoted ? Unclosed(Quote(written_.last.text)) : written_.last.text;
    if (written_.last.quoted && !isQuoted) return;
    if (BeginsWith(candidate.text, wanted)) found_.push_back(std::move(candidate));
  }

  static std::string Unclosed(std::string quoted) {
    quoted.pop_back();
    return quoted;
  }

  void OfferControls() {
    for (Dialog* dialog : scene_.Standing()) {
      const bool isMeant = dialog == scene_.Find(dialog->TemplateId());
      const bool isSeen = dialog->IsVisible() || statement_ == "show" || statement_ == "expect";
      if (!isMeant || !isSeen) continue;
      for (const auto& control : dialog->Controls()) {
        if (!control->Exists() || !Takes(statement_, *control)) continue;
        Add({IdOf(scene_, *dialog, *control), KindName(control->Kind()) + (' ' + NameOf(*dialog, *control)), true});
      }
    }
  }

  // Of the control that was named before: by text, or by number where there is none.
  void OfferEntries(bool byText) {
    const auto name = written_.before.size() < 2 ? std::nullopt : ParseControlName(written_.before[1]);
    const Dialog* dialog = name ? scene_.Find(name->dialog.value_or(scene_.DefaultDialog())) : nullptr;
    const Control* control = dialog == nullptr ? nullptr : dialog->Find(name->id);
    if (control == nullptr) return;
    int index = 0;
    for (const std::string& entry : EntriesOf(*control)) {
      const std::string number = '#' + std::to_string(index++);
      const bool numberIsWanted = entry.empty() || written_.last.text.starts_with('#') || statement_ == "arrow";
      if (numberIsWanted != byText) Add(byText ? Candidate{Quote(entry), number} : Candidate{number, entry});
    }
  }

  void OfferFiles() {
    if (statement_ != "preview") return OfferNames(ModuleFileNames(), "");
    for (const std::string& name : FilesBeginning(written_.last.text)) Add({name, {}, !name.ends_with('/')});
    for (const std::string& name : FilesBeginning(scriptFolder_ + written_.last.text))
      Add({name.substr(scriptFolder_.size()), {}, !name.ends_with('/')});
  }

  void OfferDialogs() {
    if (statement_ == "when") return OfferNames({{"103", "104", "119"}}, "");
    for (const Dialog* dialog : scene_.Standing())
      if (dialog->IsVisible()) Add({std::to_string(dialog->TemplateId()), dialog->Title(), true});
  }

  const Scene& scene_;
  std::string_view statement_;
  Written written_;
  const std::string& scriptFolder_;
  std::vector<Candidate> found_;
};

}  // namespace

std::string Completion::Common() const {
  if (candidates.empty()) return {};
  std::string_view common = candidates.front().text;
  for (const Candidate& candidate : candidates) {
    const auto differs = std::mismatch(common.begin(), common.end(), candidate.text.begin(), candidate.text.end());
    common = common.substr(0, static_cast<std::size_t>(differs.first - common.begin()));
  }
  std::size_t whole = 0;
  while (whole < common.size() && utf8::IsCharacter(common.substr(whole)))
    whole += utf8::CharacterLength(common.substr(whole));
  return std::string(common.substr(0, whole));
}

Completion Interpreter::Complete(std::string_view line) {
  Written written = Split(line);
  std::vector<Word> words = written.before;
  const Statement* statement = words.empty() || words[0].quoted ? nullptr : FindStatement(words[0].text);
  Completer completer(session_.TheScene(), statement == nullptr ? std::string_view() : statement->name,
                      std::move(written), options_.scriptFolder);
  if (words.empty()) {
    completer.OfferNames(StatementNames(), "");
    if (inside_ != nullptr || lines_ != outermost_) completer.OfferNames({{"end"}}, "");
  } else if (statement != nullptr) {
    std::span<const Word> behind = std::span<const Word>(words).subspan(1);
    std::string_view form = statement->form;
    // What can be expected is what can be shown.
    const bool expectsShown = statement->name == "expect" && behind.size() < 3;
    if (expectsShown && !behind.empty()) completer.Offer("is");
    if (expectsShown) {
      for (const std::string& word : FormWordsAfter(FindStatement("show")->form, behind)) completer.Offer(word);
      if (behind.empty()) completer.Offer("heard");
    } else {
      for (const std::string& word : FormWordsAfter(form, behind)) completer.Offer(word);
    }
    if (statement->name == "help" && behind.empty()) completer.OfferNames(StatementNames(), "");
  }
  return std::move(completer).Result();
}

}  // namespace set32

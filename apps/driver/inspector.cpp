#include "apps/driver/inspector.h"

#include <array>

#include "apps/driver/not_possible.h"
#include "apps/driver/page_drawing.h"
#include "apps/driver/settings_fields.h"
#include "apps/driver/suggestions.h"
#include "resources/dialogs.h"

namespace set32 {

struct Inspector::Row {
  std::string_view name;
  std::size_t least, most;  // words behind the name
  Shown (Inspector::*show)(std::span<const Word>) const;
};

std::span<const Inspector::Row> Inspector::Rows() {
  static constexpr std::array rows = {
      Row{"place", 1, 1, &Inspector::ShowPlace},       Row{"moved", 1, 1, &Inspector::ShowMoved},
      Row{"title", 1, 1, &Inspector::ShowTitle},       Row{"picture", 1, 1, &Inspector::ShowPicture},
      Row{"tip", 1, 2, &Inspector::ShowTip},           Row{"focus", 0, 0, &Inspector::ShowFocus},
      Row{"time", 0, 0, &Inspector::ShowTime},         Row{"page", 0, 1, &Inspector::ShowPage},
      Row{"settings", 0, 0, &Inspector::ShowSettings}, Row{"open", 0, 0, &Inspector::ShowOpen},
      Row{"pixel", 2, 2, &Inspector::ShowPixel},       Row{"sum", 0, 0, &Inspector::ShowSum},
      Row{"drawing", 0, 0, &Inspector::ShowDrawing},   Row{"file", 1, 1, &Inspector::ShowFile},
  };
  return rows;
}

namespace {

// A line whose start repeats the statement's words.
Shown Line(std::string head, const std::string& rest) {
  head += ' ';
  const std::size_t length = head.size();
  return {{std::move(head) + rest}, length, true};
}

ControlName RequireControlName(const Word& word) {
  auto name = ParseControlName(word);
  if (!name) throw NotPossible(Quote(word.text) + " is no control");
  return *std::move(name);
}

bool IsPopUp(int dialogId) {
  const DialogTemplate* source = FindDialog(dialogId);
  return source != nullptr && source->style != DialogStyle::child && source->style != DialogStyle::sheet;
}

std::string RectText(const Rect& rect) {
  return std::to_string(rect.left) + ' ' + std::to_string(rect.top) + ' ' + std::to_string(rect.right) + ' ' +
         std::to_string(rect.bottom);
}

std::string ColourText(Colour colour) {
  return std::to_string(colour.blue) + ',' + std::to_string(colour.green) + ',' + std::to_string(colour.red);
}

char DrawingCharacter(const Picture& picture, std::size_t pixel, Colour face) {
  const std::uint8_t* bytes = picture.pixels.data() + pixel * 4;
  const Colour colour{bytes[2], bytes[1], bytes[0]};
  if (colour == face) return '.';
  if (colour == Colour{0, 0, 0}) return bytes[3] == dottedAlpha ? ':' : '#';
  if (colour == Colour{255, 0, 0}) return 'r';
  if (colour == Colour{0, 255, 0}) return 'g';
  if (colour == Colour{0, 0, 255}) return 'b';
  return '?';
}

}  // namespace

Shown Inspector::Show(std::span<const Word> words) {
  if (words.empty()) throw NotPossible("show what?");
  if (!words[0].quoted) {
    for (const Row& row : Rows()) {
      if (row.name != words[0].text) continue;
      const std::size_t arguments = words.size() - 1;
      if (arguments < row.least || arguments > row.most)
        throw NotPossible("show " + words[0].text + " takes another form", "`help show` tells it");
      return (this->*row.show)(words);
    }
  }
  if (words.size() != 1) throw NotPossible("show takes one thing at a time", "`help show` lists them");
  if (const auto name = ParseControlName(words[0])) return ShowControl(*name);
  return ShowField(words[0]);
}

Shown Inspector::ShowControl(const ControlName& name) const {
  return Line(name.written, Describe(name));
}

Shown Inspector::ShowPlace(std::span<const Word> words) const {
  const ControlName name = RequireControlName(words[1]);
  const bool isDialog = !name.dialog && IsPopUp(name.id);
  return Line("place " + words[1].text,
              RectText(isDialog ? scene_.Require(name.id).Place() : scene_.Require(name).control.Place()));
}

Shown Inspector::ShowMoved(std::span<const Word> words) const {
  const FoundControl found = scene_.Require(RequireControlName(words[1]));
  const Rect now = found.control.Place();
  Rect then = now;
  if (const auto page = before_.find(found.dialog.Handle()); page != before_.end()) {
    const auto control = page->second.controls.find(found.control.Id());
    if (control != page->second.controls.end()) then = control->second;
  }
  return Line("moved " + words[1].text,
              RectText({now.left - then.left, now.top - then.top, now.right - then.right, now.bottom - then.bottom}));
}

Shown Inspector::ShowTitle(std::span<const Word> words) const {
  return Line("title " + words[1].text, Quote(scene_.Require(RequireInt(words[1])).Title()));
}

Shown Inspector::ShowPicture(std::span<const Word> words) const {
  const Control& control = scene_.Require(RequireControlName(words[1])).control;
  const auto* shows = dynamic_cast<const ShowsPicture*>(&control);
  if (shows == nullptr) throw NotPossible("control " + words[1].text + " shows no picture");
  const std::string name = shows->PictureName();
  return Line("picture " + words[1].text, name.empty() ? "none" : name);
}

Shown Inspector::ShowTip(std::span<const Word> words) const {
  const FoundControl found = scene_.Require(RequireControlName(words[1]));
  const auto* tips = dynamic_cast<const TellsTips*>(&found.dialog.Tips());
  const auto told = [&](int index) { return Quote(tips == nullptr ? "" : tips->TextAt(found.control.Id(), index)); };
  if (words.size() == 2) return Line("tip " + words[1].text, told(0));
  const auto index = ParseIndex(words[2]);
  if (!index) throw NotPossible("show tip takes ID or ID #INDEX");
  return Line("tip " + words[1].text + ' ' + words[2].text, told(*index));
}

Shown Inspector::ShowFocus(std::span<const Word>) const {
  const auto focus = scene_.Focused();
  if (!focus) return Line("focus", "none");
  const std::string id = std::to_string(focus->control->Id());
  const bool isOnPage = focus->dialog == scene_.Find(dialog::general);
  return Line("focus", isOnPage ? id : std::to_string(focus->dialog->TemplateId()) + ':' + id);
}

Shown Inspector::ShowTime(std::span<const Word>) const {
  return Line("time", std::to_string(start_ ? clock_.Now() - *start_ : 0));
}

Shown Inspector::ShowPage(std::span<const Word> words) const {
  if (words.size() > 1) return {DrawInCharacters(scene_.Require(RequireInt(words[1])), nullptr), 0, false};
  const bool onPage = scene_.DefaultDialog() == dialog::general;
  const Dialog* page = onPage ? scene_.PageInFront() : &scene_.Require(scene_.DefaultDialog());
  if (page == nullptr) throw NotPossible("no page stands", "`open` opens the panel");
  const TabBar* tabs = nullptr;
  if (const Dialog* sheet = scene_.Find(dialog::sheet); onPage && sheet != nullptr && !host_.IsPageInline()) {
    tabs = &sheet->Get<TabBar>(id_sheet::tabs);
  }
  return {DrawInCharacters(*page, tabs), 0, false};
}

Shown Inspector::ShowSettings(std::span<const Word>) const {
  return Line("settings", AllFields(host_.Settings()));
}

Shown Inspector::ShowField(const Word& word) const {
  const SettingsField* field = word.quoted ? nullptr : FindField(word.text);
  if (field == nullptr) {
    std::vector<std::string> known = FieldNames();
    known.reserve(known.size() + Rows().size());
    for (const Row& row : Rows()) known.emplace_back(row.name);
    throw NotPossible("show knows no " + Quote(word.text), Suggest(word.text, known) + " (or a control's id)");
  }
  const std::string head = word.text + '=';
  return {{head + FieldText(host_.Settings(), *field)}, head.size(), true};
}

Shown Inspector::ShowOpen(std::span<const Word>) const {
  return Line("open", host_.IsSettingOpen() ? "1" : "0");
}

Shown Inspector::ShowPixel(std::span<const Word> words) const {
  const auto pixel = host_.Preview().PixelAt(RequireInt(words[1]), RequireInt(words[2]));
  if (!pixel) throw NotPossible("no such pixel");
  return Line("pixel " + words[1].text + ' ' + words[2].text,
              "source=" + ColourText(pixel->source) + " display=" + ColourText(pixel->display));
}

Shown Inspector::ShowSum(std::span<const Word>) const {
  const auto sum = host_.Preview().DisplaySum();
  if (!sum) throw NotPossible("there is no picture");
  return Line("sum", std::to_string(*sum));
}

Shown Inspector::ShowDrawing(std::span<const Word>) const {
  Dialog& page = scene_.Require(dialog::advanced);
  auto& frame = page.Get<Frame>(id148::pictureFrame);
  const auto* keeps = dynamic_cast<const KeepsDrawing*>(&frame);
  const Picture picture = keeps == nullptr ? Picture{} : keeps->Drawing();
  Colour face;
  frame.Draw([&](Canvas& canvas) { face = canvas.ColourOf(SystemColour::buttonFace); });
  Shown shown{
      {"drawing " + std::to_string(picture.size.width) + ' ' + std::to_string(picture.size.height)}, 0, false};
  if (picture.Empty()) return shown;
  std::size_t pixel = 0;
  for (int y = 0; y < picture.size.height; ++y) {
    std::string line;
    for (int x = 0; x < picture.size.width; ++x) line += DrawingCharacter(picture, pixel++, face);
    shown.lines.push_back(std::move(line));
  }
  return shown;
}

Shown Inspector::ShowFile(std::span<const Word> words) const {
  const auto file = FindModuleFile(words[1].text);
  if (!file) throw NotPossible("no file " + Quote(words[1].text), Suggest(words[1].text, ModuleFileNames()));
  Shown shown{files_.Lines(*file), 0, false};
  for (std::string& line : shown.lines) line.insert(0, "file ");
  return shown;
}

Inspector::AllPlaces Inspector::PlacesNow() const {
  AllPlaces all;
  for (const Dialog* dialog : scene_.Standing()) {
    Places places{dialog->Place(), dialog->ClientSize(), {}};
    for (const auto& control : dialog->Controls()) places.controls[control->Id()] = control->Place();
    all.emplace(dialog->Handle(), std::move(places));
  }
  return all;
}

void Inspector::NoteMoves(const AllPlaces& before) {
  for (const auto& [window, now] : PlacesNow()) {
    const auto then = before.find(window);
    if (then == before.end()) {
      before_[window] = now;  // new: it stands where it was made
    } else if (then->second != now) {
      before_[window] = then->second;
    }
  }
}

void Inspector::StartClock() {
  if (!start_) start_ = clock_.Now();
}

}  // namespace set32

#include "apps/driver/statement_table.h"

#include <array>

#include "apps/driver/suggestions.h"

namespace set32 {

std::span<const Interpreter::Statement> Interpreter::Statements() {
  using I = Interpreter;
  constexpr std::size_t any = 1000;
  constexpr bool act = true;
  constexpr bool quiet = false;
  static constexpr std::array rows = {
      // What the host holds.
      Statement{"set", 2, 2, quiet, &I::Set, "set FIELD VALUE", "the host writes its record"},
      Statement{"limits", 1, 4, quiet, &I::Limits, "limits null | MODEMASK RESOLUTIONMASK MAXDPI MINDPI",
                "what the device can do"},
      Statement{"caps", 1, any, quiet, &I::Caps, "caps null | NAME=VALUE ...",
                "restrictedMaxDpi, sourceCaps or word12 and the like"},
      Statement{"preview", 1, 4, quiet, &I::Preview, "preview none | FILE | blank WIDTH HEIGHT DPI",
                "the host's picture"},
      Statement{"rect", 4, 4, quiet, &I::Rectangle, "rect LEFT TOP RIGHT BOTTOM", "where the panel stands"},
      Statement{"args", 1, any, quiet, &I::Arguments, "args jpegModes=N bwThreshold=N outputBits=N",
                "the other arguments"},
      Statement{"ini", 4, 4, quiet, &I::Ini, "ini FILE SECTION KEY VALUE",
                "writes a key; FILE is module, hardware, options or profile"},
      Statement{"usb", 2, 3, quiet, &I::Usb, "usb NUMBER VENDOR PRODUCT | NUMBER silent | NUMBER none",
                "a USB device"},
      Statement{"net", 2, 2, quiet, &I::Net, "net ADDRESS BYTES | ADDRESS silent | fail STEP | loops yes",
                "what answers on the network"},
      Statement{"bytes", 2, 2, quiet, &I::Bytes, "bytes FILE HEX", "writes a whole file"},
      Statement{"registry", 3, 3, quiet, &I::RegistryValue, "registry PATH NAME TEXT", "lays a registry value"},
      Statement{"restart", 0, 0, quiet, &I::Restart, "restart", "the host's process ends and starts again"},
      Statement{"stores", 1, 1, quiet, &I::Stores, "stores units | nothing", "what the host does on 0x405"},
      Statement{"record", 1, 1, quiet, &I::Record, "record new", "the next opening passes a copy of the record"},
      Statement{"answers", 2, 2, quiet, &I::Answers, "answers WPARAM RESULT", "the host's result to 0x403"},

      // What host and person do.
      Statement{"open", 0, 0, act, &I::Open, "open", "the host calls uiFixSetting"},
      Statement{"close", 0, 1, act, &I::Close, "close [DIALOG]", "the host ends the panel; a dialog's close box"},
      Statement{"enable", 1, 1, act, &I::EnablePage, "enable yes | no", "the host enables or disables the page"},
      Statement{"report", 1, any, act, &I::Report, "report WPARAM FIELD=VALUE ... [frame=ACTION,INDEX]",
                "the host sends 0x403"},
      Statement{"send", 1, 3, act, &I::Send, "send MESSAGE [WPARAM [LPARAM]]", "the host sends any message"},
      Statement{"pick", 2, 2, act, &I::Pick, "pick ID TEXT | ID #INDEX", "an entry of a combo, or a tab"},
      Statement{"click", 1, 1, act, &I::Click, "click ID", "a button, check box or radio button"},
      Statement{"row", 2, 2, act, &I::Row, "row ID TEXT | ID #INDEX | ID none",
                "a click on a row, or beside the rows"},
      Statement{"arrow", 2, 2, act, &I::Arrow, "arrow ID #INDEX", "moves to a row with the keyboard"},
      Statement{"focus", 1, 1, act, &I::Focus, "focus ID", "moves the focus"},
      Statement{"leave", 0, 0, act, &I::Leave, "leave", "the focus goes to the host's window"},
      Statement{"type", 2, 2, act, &I::Type, "type ID TEXT", "selects all and types"},
      Statement{"append", 2, 2, act, &I::Append, "append ID TEXT", "types behind the text"},
      Statement{"paste", 2, 2, act, &I::Paste, "paste ID TEXT", "pastes at the end"},
      Statement{"erase", 2, 2, act, &I::Erase, "erase ID N", "N times backspace at the end"},
      Statement{"address", 2, 2, act, &I::FillAddress, "address ID TEXT", "fills an IP address"},
      Statement{"caret", 2, 3, act, &I::Caret, "caret ID START [END]", "places the caret or selects"},
      Statement{"drop", 1, 1, act, &I::Drop, "drop ID", "opens and closes a combo's list"},
      Statement{"top", 2, 2, act, &I::Top, "top ID INDEX", "scrolls a combo's list"},
      Statement{"key", 1, 1, act, &I::PressKey,
                "key enter | escape | tab | backtab | left | right | up | down | pageup | pagedown | home | end",
                "for the control that has the focus"},
      Statement{"scroll", 2, 3, act, &I::Scroll, "scroll ID CODE [POSITION]", "a bar or slider"},
      Statement{"spin", 2, 2, act, &I::Spin, "spin ID DELTA", "one step of a spin"},
      Statement{"point", 2, 2, act, &I::PointAt, "point X Y", "the pointer moves over the page"},
      Statement{"page", 1, 1, act, &I::Page, "page general | advanced", "turns to a page of the sheet"},
      Statement{"resize", 2, 2, act, &I::Resize, "resize WIDTH HEIGHT", "client size of the page in front"},
      Statement{"poke", 1, 1, act, &I::Poke, "poke ID", "the click message that a program sends"},
      Statement{"release", 1, 1, act, &I::Release, "release ID", "the mouse button goes up over a slider"},
      Statement{"when", 1, 2, act, &I::When, "when DIALOG | box | host MESSAGE ... end",
                "what happens inside when it opens, or when the host hears it"},
      Statement{"answer", 1, 1, act, &I::Answer, "answer yes | no | ok | cancel", "inside `when box`: the button"},

      // What is seen.
      Statement{"show", 1, 3, quiet, &I::Show,
                "show ID | FIELD | settings | page [DIALOG] | focus | open | place ID | place DIALOG | moved ID | "
                "title DIALOG | "
                "picture ID | tip ID [#INDEX] | pixel X Y | sum | drawing | file FILE | time",
                "prints what is to be seen"},
      Statement{"expect", 1, any, quiet, &I::Expect, "expect SHOWN is LINE | heard ... end",
                "an error unless it holds"},
      Statement{"help", 0, 1, quiet, &I::Help, "help [STATEMENT | ID | DIALOG]",
                "the statements and the controls in front, or one of them"},
      Statement{"quit", 0, 0, quiet, &I::Quit, "quit", "ends the host"},
  };
  return rows;
}

const Interpreter::Statement* Interpreter::FindStatement(std::string_view name) {
  if (SameWord(name, "exit")) name = "quit";
  if (name == "?") name = "help";
  for (const Statement& statement : Statements()) {
    if (SameWord(statement.name, name)) return &statement;
  }
  return nullptr;
}

std::vector<std::string> Interpreter::StatementNames() {
  std::vector<std::string> names;
  names.reserve(Statements().size());
  for (const Statement& statement : Statements()) names.emplace_back(statement.name);
  return names;
}

}  // namespace set32

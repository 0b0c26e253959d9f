// A walk through the panel with eyes closed: what a screen reader is told of each control that can take the focus.
// Printed as a transcript; no name is empty, none comes twice within a dialog.
#include <windows.h>

#include <oleacc.h>

#include <iostream>
#include <map>

#include "platform/win32/code_page.h"
#include "tests/support/scenario.h"

namespace set32 {
namespace {

using win32::Utf8FromWide;

std::string TextOf(HWND window) {
  wchar_t text[256] = L"";
  GetWindowTextW(window, text, 256);
  return Utf8FromWide(text);
}

bool IsA(HWND window, const wchar_t* kind) {
  wchar_t name[64] = L"";
  GetClassNameW(window, name, 64);
  return lstrcmpiW(name, kind) == 0;
}

std::string Taken(BSTR text) {
  const std::string taken = text == nullptr ? std::string() : Utf8FromWide(text);
  SysFreeString(text);
  return taken;
}

struct Told {
  std::string name;
  std::string value;
};

// What the system's accessibility interface says.
Told ToldOf(HWND window) {
  Told told;
  IAccessible* accessible = nullptr;
  if (AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                 reinterpret_cast<void**>(&accessible)) != S_OK)
    return told;
  VARIANT self{};
  self.vt = VT_I4;
  BSTR text = nullptr;
  if (accessible->get_accName(self, &text) == S_OK) told.name = Taken(text);
  text = nullptr;
  if (accessible->get_accValue(self, &text) == S_OK) told.value = Taken(text);
  accessible->Release();
  return told;
}

// The rule by which the system names what has no text of its own: the label right before it.
std::string LabelBefore(HWND control) {
  const HWND before = GetWindow(control, GW_HWNDPREV);
  return before != nullptr && IsA(before, L"Static") ? TextOf(before) : std::string();
}

// Wine's interface tells a combo's or an address's content instead, so the rule itself is held there.
std::string NameOf(HWND control, const Told& told) {
  const bool tellsContent = IsA(control, L"ComboBox") || IsA(control, L"SysIPAddress32");
  return tellsContent ? LabelBefore(control) : told.name;
}

class Names : public Scenario {
 protected:
  Names() { CoInitialize(nullptr); }
  ~Names() override { CoUninitialize(); }

  // Every control of the dialog that Tab, an arrow or a click can give the focus to.
  void Hear(const char* title, int dialogId) {
    const Dialog* found = TheSession().TheScene().Find(dialogId);
    ASSERT_NE(found, nullptr) << title;
    const auto dialog = reinterpret_cast<HWND>(found->Handle());
    std::cout << title << "\n";
    std::map<std::string, int> heard;
    for (HWND control = GetWindow(dialog, GW_CHILD); control != nullptr; control = GetWindow(control, GW_HWNDNEXT)) {
      const auto style = static_cast<DWORD>(GetWindowLongW(control, GWL_STYLE));
      const bool isRadio = IsA(control, L"Button") && (style & BS_TYPEMASK) == BS_RADIOBUTTON;
      if ((style & WS_VISIBLE) == 0 || ((style & WS_TABSTOP) == 0 && !isRadio)) continue;
      const Told told = ToldOf(control);
      const std::string name = NameOf(control, told);
      const int id = GetDlgCtrlID(control);
      std::cout << "  " << id << " \"" << name << "\"" << (told.value.empty() ? "" : " holds " + told.value) << "\n";
      EXPECT_NE(name, "") << title << ' ' << id;
      const auto [first, isNew] = heard.emplace(name, id);
      EXPECT_TRUE(isNew) << title << ": " << first->second << " and " << id << " are both " << name;
    }
    EXPECT_FALSE(heard.empty()) << title;
  }
};

TEST_F(Names, AreTheSheetsAndItsDialogs) {
  WriteKey(ModuleFile::options, "OPTION", "LLDriverInterface", "1");
  WriteKey(ModuleFile::options, "OPTION", "EnablePaperSource", "1");
  Open();
  Hear("sheet", dialog::sheet);
  Hear("General page", dialog::general);
  WhenDialog(dialog::saveConfig, [this] {
    Hear("name of a configuration", dialog::saveConfig);
    Person().PressKey(Key::escape);
  });
  Person().Click(id::saveButton);
  WhenDialog(dialog::addScanner, [this] {
    Hear("address of a scanner", dialog::addScanner);
    Person().PressKey(Key::escape);
  });
  Person().Pick(id::scannerCombo, "加入掃描器 IP...");
  Person().TurnTo(dialog::advanced);
  for (int tab = 0; tab < 3; ++tab) {
    Person().Pick({dialog::advanced, id148::viewTabs}, tab);
    Hear("Advanced page", dialog::advanced);
  }
}

TEST_F(Names, AreTheInlinePagesAndItsDialog) {
  WriteKey(ModuleFile::options, "Option", "UIFace", "0");
  Host().Arguments().jpegModes = 1;
  Open();
  Hear("inline page", dialog::general);
  Person().Click(id::advancedButton);
  Hear("advanced dialog", dialog::gamma);
  Person().Click({dialog::gamma, id103::gammaBandsRadio});
  Hear("advanced dialog, band by band", dialog::gamma);
}

}  // namespace
}  // namespace set32

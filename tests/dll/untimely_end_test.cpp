// What a host should not do and no panel may fall over: the library is freed under a standing panel, or the panel's
// thread ends and takes the windows along without a word.
#include <memory>
#include <thread>
#include <utility>

#include "resources/ids.h"
#include "tests/dll/loaded_panel.h"

namespace set32 {
namespace {

enum Face { inlineFace = 0, sheetFace = 1 };

class UntimelyEnd : public Dll {
 protected:
  void Free() { FreeLibrary(std::exchange(library_, nullptr)); }
  // Whether the host hears of a choice at the panel.
  static bool Works(HostWindow& host, HWND page) {
    host.heard.clear();
    const HWND combo = GetDlgItem(page, id::unitCombo);
    SendMessageW(combo, CB_SETCURSEL, 1, 0);
    SendMessageW(page, WM_COMMAND, MAKEWPARAM(id::unitCombo, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
    return host.heard == std::vector<UINT>{to_host::unitChosen};
  }
};

TEST_F(UntimelyEnd, OnlyALibraryFreedUnderAStandingPanelStays) {
  for (const Face face : {sheetFace, inlineFace}) {
    ChooseFace(face);
    {
      HostWindow host;
      EXPECT_TRUE(IsWindow(OpenIn(host)));
    }
    Free();
    EXPECT_FALSE(IsLoaded()) << face;
    Load();
  }
  ChooseFace(sheetFace);
  HostWindow host, other;
  const HWND page = OpenIn(host);
  std::thread([&] { Free(); }).join();
  EXPECT_TRUE(Works(host, page));
  EXPECT_EQ(OpenIn(host), page);
  DestroyWindow(host.window);
  Pump();
  EXPECT_TRUE(IsLoaded());
  EXPECT_NE(folder_.Read("QUIRNPrf.ini").find("Tmp="), std::string::npos);
  EXPECT_EQ(OpenIn(other), nullptr);
  EXPECT_EQ(isOpen_(), 0U);
}

TEST_F(UntimelyEnd, AHostMayEndAndFreeAllInsideAMessage) {
  HostWindow host;
  host.on = [&](UINT heard) {
    if (heard != to_host::modeShown || library_ == nullptr) return;
    DestroyWindow(host.window);
    Free();
  };
  EXPECT_EQ(OpenIn(host), nullptr);
  Pump();
  EXPECT_TRUE(IsLoaded());
}

// A thread of the host's that opens the panel and comes to its end under it.
class Opener {
 public:
  enum class End { returns, isKilled, exitsInsideAMessage };
  Opener(End end, std::function<HWND(HostWindow&)> open) : end_(end), open_(std::move(open)) {
    const HANDLE thread = CreateThread(nullptr, 0, Run, this, 0, nullptr);
    HANDLE either[] = {thread, opened_};
    WaitForMultipleObjects(2, either, FALSE, INFINITE);
    if (end == End::isKilled) TerminateThread(thread, 0);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    CloseHandle(opened_);
  }
  HWND Page() const { return page_; }

 private:
  static DWORD CALLBACK Run(void* self) {
    static_cast<Opener*>(self)->Live();
    return 0;
  }
  void Live() {
    host_ = std::make_unique<HostWindow>();
    host_->on = [this](UINT heard) {
      if (end_ == End::exitsInsideAMessage && heard == to_host::modeShown) ExitThread(0);
    };
    page_ = open_(*host_);
    SetEvent(opened_);
    if (end_ == End::isKilled) Sleep(INFINITE);
  }

  End end_;
  std::function<HWND(HostWindow&)> open_;
  HANDLE opened_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  std::unique_ptr<HostWindow> host_;
  HWND page_ = nullptr;
};

TEST_F(UntimelyEnd, AThreadThatEndsUnderThePanelLeavesItToTheNext) {
  for (const Face face : {sheetFace, inlineFace}) {
    for (const auto end : {Opener::End::returns, Opener::End::isKilled}) {
      SCOPED_TRACE(testing::Message() << "face " << face << " end " << static_cast<int>(end));
      ChooseFace(face);
      auto record = std::make_unique<ScanSettings>(settings);
      const Opener opener(end, [&](HostWindow& host) {
        return reinterpret_cast<HWND>(
            open_(host.Handle(), host.Handle(), nullptr, record.get(), nullptr, 0, 0, 128, 36, &place, nullptr));
      });
      EXPECT_NE(opener.Page(), nullptr);
      const std::string kept = folder_.Read("QUIRNPrf.ini");
      std::memset(record.get(), 0xEE, sizeof *record);
      record.reset();
      EXPECT_EQ(isOpen_(), 0U);
      HostWindow host;
      const HWND page = OpenIn(host);
      EXPECT_EQ(page != nullptr, face == inlineFace) << "the sheet opens once in a load";
      EXPECT_EQ(Works(host, page), face == inlineFace);
      if (face == sheetFace) {
        EXPECT_EQ(folder_.Read("QUIRNPrf.ini"), kept);
      }
      DestroyWindow(host.window);
      Free();
      EXPECT_FALSE(IsLoaded());
      Load();
    }
  }
}

TEST_F(UntimelyEnd, ALibraryWhoseThreadEndedUnderThePanelIsUnloaded) {
  const Opener opener(Opener::End::returns, [&](HostWindow& host) { return OpenIn(host); });
  EXPECT_NE(opener.Page(), nullptr);
  Free();
  EXPECT_FALSE(IsLoaded());
}

// What stood half way there can't be known.
TEST_F(UntimelyEnd, AThreadThatEndsInsideThePanelsCodeTakesThePanelWithIt) {
  ChooseFace(inlineFace);
  const Opener opener(Opener::End::exitsInsideAMessage, [&](HostWindow& host) { return OpenIn(host); });
  HostWindow host;
  EXPECT_EQ(OpenIn(host), nullptr);
  EXPECT_THAT(host.heard, testing::IsEmpty());
  Free();
  EXPECT_TRUE(IsLoaded());
}

}  // namespace
}  // namespace set32

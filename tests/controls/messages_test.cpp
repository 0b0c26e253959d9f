// What speaks to the user without stopping the caller: the message dialog, boxes on a thread, and the run of a dialog
// beside its page.
#include <gmock/gmock.h>

#include "apps/stage/model/headless_dialog.h"
#include "controls/message_dialog.h"
#include "controls/modal_to_modeless.h"
#include "controls/thread_message.h"
#include "tests/support/scenario.h"

namespace set32 {
namespace {

// Threads of which the mutexes alone matter: who holds one is written down.
class MutexRecorder : public Threads {
 public:
  bool Start(ThreadPriority, std::function<void()>) override { return false; }
  std::unique_ptr<NamedMutex> MakeMutex(std::string_view name, bool owned) override {
    return owned ? std::make_unique<Held>(held, name) : nullptr;
  }
  std::string held;

 private:
  class Held : public NamedMutex {
   public:
    Held(std::string& held, std::string_view name) : held_(held) { held_ = name; }
    bool Wait(int) override { return true; }
    void Release() override { held_.clear(); }

   private:
    std::string& held_;
  };
};

class Messages : public Scenario {
 protected:
  Messages() {
    state_.runtimeIniPath = TheSession().TheFiles().PathOf(ModuleFile::options);
    state_.productName = "Scan Desk";
  }

  Dialog* MessageWindow() { return TheSession().TheScene().Find(dialog::message); }
  std::string Shown() { return MessageWindow()->Title() + ": " + Seen("115:1033"); }
  static std::string IconOf(Dialog& window) {
    const auto* modelled = dynamic_cast<HeadlessDialog*>(&window);
    return modelled == nullptr ? "" : modelled->Icon().name;
  }

  ModuleState state_{TheSession().Outside().ThePlatform()};
  CMessageDlg message_{state_};
};

TEST_F(Messages, TheDialogIsUsedAgain) {
  message_.Show(0, "first", "one");
  Dialog* window = MessageWindow();
  ASSERT_NE(window, nullptr);
  window->Move({0, 0, 50, 50});
  message_.Show(0, "second", "two");
  EXPECT_EQ(MessageWindow(), window);
  EXPECT_EQ(Shown(), "second: label visible enabled text=\"two\"");
  const Rect place = window->Place();
  const Size screen = TheSession().Outside().ThePlatform().windows.FullScreen();
  EXPECT_EQ(place.left, (screen.width - place.Width()) / 2);
  EXPECT_EQ(place.top, (screen.height - place.Height()) / 2);

  Person().Click({dialog::message, id::ok});
  EXPECT_TRUE(window->IsAlive());
  EXPECT_FALSE(window->IsVisible());
  message_.Show(0, "third", "three");
  EXPECT_TRUE(window->IsVisible());
}

TEST_F(Messages, TheDialogComesBackAfterItsOwnerDied) {
  Open();
  message_.Show(Host().Page(), "first", "one");
  Host().Close();
  ASSERT_EQ(MessageWindow(), nullptr);
  message_.Show(0, "second", "two");
  ASSERT_NE(MessageWindow(), nullptr);
  EXPECT_EQ(MessageWindow()->Title(), "second");
}

TEST_F(Messages, AMakersEditionHasItsOwnIcon) {
  message_.Show(0, "", "");
  ASSERT_NE(MessageWindow(), nullptr);
  const std::string ordinary = IconOf(*MessageWindow());
  WriteKey(ModuleFile::options, "Option", "OEM", "1");
  message_.Show(0, "", "");
  if (ordinary.empty()) GTEST_SKIP() << "a real window doesn't name its icon";
  EXPECT_EQ(ordinary, picture::windowIcon);
  EXPECT_EQ(IconOf(*MessageWindow()), picture::windowIconOem);
}

TEST_F(Messages, EachErrorHasABoxWithItsOwnText) {
  std::vector<WindowHandle> owners;
  std::string shown;
  TheSession().Outside().TheBoxes().SetListener([&](const ShownBox& box) {
    owners.push_back(box.owner);
    shown += box.caption + '/' + std::to_string(box.style) + (box.onThread ? "/thread/" : "/") + box.text + '\n';
  });
  ShowMessageOnThread(state_, "first");
  Open();
  state_.boxOwner = Host().Page();
  std::string longText;
  while (longText.size() < 300) longText += "\xC3\xA9";
  ShowMessageOnThread(state_, longText);
  EXPECT_THAT(owners, testing::ElementsAre(0U, Host().Page()));
  EXPECT_EQ(shown,
            "Scan Desk/16/thread/first\nScan Desk/16/thread/" + longText.substr(0, 254) + '\n');  // a character
}

class FakeDialog : public ModelessDialog {
 public:
  bool Open(WindowHandle) override {
    if (whenOpening) whenOpening();
    return opens;
  }
  void Cancel() override {
    if (run != nullptr) run->Ended();
  }
  bool opens = true;
  CDlgModalToModeless* run = nullptr;  // told at the end
  std::function<void()> whenOpening;
};

class ModelessRun : public testing::Test {
 protected:
  MutexRecorder threads_;
};

TEST_F(ModelessRun, HoldsItsMutexFromStartToEnd) {
  CDlgModalToModeless run(threads_);
  FakeDialog dialog;
  dialog.run = &run;
  ASSERT_TRUE(run.Start(dialog, 0));
  EXPECT_EQ(threads_.held, "CGammaSetting Mutex Object");
  EXPECT_FALSE(run.Start(dialog, 0)) << "one at a time";
  EXPECT_TRUE(run.CancelAndWait());
  EXPECT_EQ(threads_.held, "");
  EXPECT_FALSE(run.IsRunning());
  EXPECT_TRUE(run.CancelAndWait()) << "nothing runs";
  EXPECT_TRUE(run.Start(dialog, 0)) << "and it can be started again";
}

TEST_F(ModelessRun, WithoutWindowIsNone) {
  CDlgModalToModeless run(threads_);
  FakeDialog dialog;
  dialog.opens = false;
  EXPECT_FALSE(run.Start(dialog, 0));
  EXPECT_FALSE(run.IsRunning());
  dialog.opens = true;
  dialog.whenOpening = [&] { run.Ended(); };
  EXPECT_FALSE(run.Start(dialog, 0)) << "closed again while it opened";
  EXPECT_EQ(threads_.held, "");

  dialog.whenOpening = nullptr;
  ASSERT_TRUE(run.Start(dialog, 0));
  EXPECT_FALSE(run.CancelAndWait()) << "a dialog that doesn't close keeps the page waiting no longer";
}

}  // namespace
}  // namespace set32

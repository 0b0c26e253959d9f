// What speaks to the user without stopping the caller: the message dialog, boxes on a thread, and the run of a dialog
// beside its page.
#include <gmock/gmock.h>

#include "controls/message_dialog.h"
#include "controls/modal_to_modeless.h"
#include "controls/thread_message.h"
#include "platform/profile_engine.h"
#include "resources/ids.h"
#include "stage/model/folder_paths.h"
#include "stage/model/folder_registry.h"
#include "stage/model/headless_boxes.h"
#include "stage/model/headless_dialog.h"
#include "stage/model/headless_system.h"
#include "stage/model/simulated_network.h"
#include "stage/model/simulated_usb.h"
#include "tests/support/memory_files.h"
#include "tests/support/stage.h"

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

class MessagesTest : public testing::Test {
 protected:
  MessagesTest() {
    state_.runtimeIniPath = "options.ini";
    state_.productName = "Scan Desk";
    boxes_.SetListener([this](const ShownBox& box) { shown_.push_back(box); });
  }

  Dialog* MessageWindow() {
    for (Dialog* dialog : stage_.TheWindows().Standing()) {
      if (dialog->TemplateId() == dialog::message) return dialog;
    }
    return nullptr;
  }
  static std::string IconOf(Dialog& window) {
    const auto* modelled = dynamic_cast<HeadlessDialog*>(&window);
    return modelled == nullptr ? "" : modelled->Icon().name;
  }

  static constexpr DialogTemplate page{1, "", {100, 100}, "Sans", 8, DialogStyle::child, {}};
  Stage stage_{page};
  SimulatedClock clock_;
  HeadlessSystem system_{clock_, 0x0404};
  SimulatedNetwork network_{clock_};
  SimulatedUsb usb_;
  MemoryFiles files_;
  ProfileEngine profiles_{files_};
  FolderRegistry registry_{"/no/such/folder"};
  FolderPaths paths_{"/no/such/folder"};
  HeadlessBoxes boxes_;
  MutexRecorder threads_;
  Platform platform_{
      stage_.TheWindows(),         boxes_,  files_, paths_, profiles_, system_, network_, usb_, registry_,
      stage_.desk->TheClipboard(), threads_};
  ModuleState state_{platform_};
  std::vector<ShownBox> shown_;
};

TEST_F(MessagesTest, TheDialogIsUsedAgain) {
  CMessageDlg message(state_);
  message.Show(stage_.dialog->Handle(), "first", "one");
  Dialog* window = MessageWindow();
  ASSERT_NE(window, nullptr);
  window->Move({0, 0, 50, 50});
  message.Show(stage_.dialog->Handle(), "second", "two");
  EXPECT_EQ(MessageWindow(), window);
  EXPECT_EQ(window->Title(), "second");
  EXPECT_EQ(window->Get<Label>(id115::text).Text(), "two");
  const Rect place = window->Place();
  const Size screen = stage_.TheWindows().FullScreen();
  EXPECT_EQ(place.left, (screen.width - place.Width()) / 2);
  EXPECT_EQ(place.top, (screen.height - place.Height()) / 2);

  stage_.Hands().Click(window->Get<Button>(id::ok));
  EXPECT_TRUE(window->IsAlive());
  EXPECT_FALSE(window->IsVisible());
  message.Show(stage_.dialog->Handle(), "third", "three");
  EXPECT_TRUE(window->IsVisible());
}

TEST_F(MessagesTest, TheDialogComesBackAfterItsOwnerDied) {
  CMessageDlg message(state_);
  message.Show(stage_.dialog->Handle(), "first", "one");
  stage_.Hands().DestroyHostWindow(stage_.host);
  ASSERT_EQ(MessageWindow(), nullptr);
  message.Show(0, "second", "two");
  ASSERT_NE(MessageWindow(), nullptr);
  EXPECT_EQ(MessageWindow()->Title(), "second");
}

TEST_F(MessagesTest, AMakersEditionHasItsOwnIcon) {
  CMessageDlg message(state_);
  message.Show(0, "", "");
  ASSERT_NE(MessageWindow(), nullptr);
  const std::string ordinary = IconOf(*MessageWindow());
  profiles_.WriteString("Option", "OEM", "1", "options.ini");
  message.Show(0, "", "");
  if (ordinary.empty()) GTEST_SKIP() << "a real window doesn't name its icon";
  EXPECT_EQ(ordinary, picture::windowIcon);
  EXPECT_EQ(IconOf(*MessageWindow()), picture::windowIconOem);
}

TEST_F(MessagesTest, EachErrorHasABoxWithItsOwnText) {
  state_.boxOwner = 0;
  ShowMessageOnThread(state_, "first");
  state_.boxOwner = stage_.dialog->Handle();
  std::string longText;
  while (longText.size() < 300) longText += "\xC3\xA9";
  ShowMessageOnThread(state_, longText);
  ASSERT_EQ(shown_.size(), 2U);
  EXPECT_EQ(shown_[0].text, "first");
  EXPECT_EQ(shown_[0].owner, 0U);
  EXPECT_EQ(shown_[1].owner, stage_.dialog->Handle());
  EXPECT_EQ(shown_[1].text, longText.substr(0, 254)) << "cut at a character";
  for (const ShownBox& box : shown_) {
    EXPECT_EQ(box.caption, "Scan Desk");
    EXPECT_EQ(box.style, 16U);
    EXPECT_TRUE(box.onThread);
  }
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

TEST_F(MessagesTest, ARunHoldsItsMutexFromStartToEnd) {
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

TEST_F(MessagesTest, ARunWithoutWindowIsNone) {
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

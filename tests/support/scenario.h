// A scenario: host, person and inspector around one panel in a fresh folder, and the lines that were seen.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "apps/driver/not_possible.h"
#include "apps/driver/session.h"
#include "apps/driver/session_folder.h"
#include "resources/ids.h"
#include "set32/host_records.h"
#include "set32/messages.h"

namespace set32 {

class Scenario : public testing::Test, protected SessionListener {
 protected:
  Scenario() = default;

  // What the tests act with.
  FakeHost& Host() { return session_.Host(); }
  User& Person() { return session_.Person(); }
  ScanSettings& Record() { return session_.Host().Settings(); }
  Session& TheSession() { return session_; }

  void WriteKey(ModuleFile file, const std::string& section, const std::string& key, const std::string& value) {
    session_.TheFiles().WriteKey(file, section, key, value);
  }
  // Opens and forgets what was seen meanwhile.
  void Open() {
    ASSERT_TRUE(session_.Open());
    Forget();
  }

  // What a `show` statement prints, without the words that repeat what was asked for.
  std::string Seen(std::string_view what) {
    const Shown shown = session_.Eye().Show(SplitWords(what));
    return shown.lines.empty() ? std::string() : shown.lines.front().substr(shown.headLength);
  }

  // Lines since the last Forget: all of them, or the host's alone.
  const std::vector<std::string>& Lines() const { return lines_; }
  const std::vector<std::string>& Heard() { return session_.Host().Heard(); }
  void Forget() {
    lines_.clear();
    session_.Host().ForgetHeard();
  }

  // Acts at the moment that a line is seen, inside whatever the panel is doing.
  void OnEveryLine(std::function<void(const std::string&)> act) { onLine_ = std::move(act); }

  // Acts inside the next dialog of this template, or inside the next box, which it answers.
  void WhenDialog(int id, std::function<void()> act) { inside_[id].push_back(std::move(act)); }
  void WhenBox(BoxAnswer answer) { answers_.push_back(answer); }

 private:
  void OnLine(const std::string& line) override {
    lines_.push_back(line);
    if (onLine_) Try([&] { onLine_(line); });
  }
  void OnModalOpened(Dialog& dialog) override {
    if (!Act(dialog)) ADD_FAILURE() << "dialog " << dialog.TemplateId() << " opens and nothing waits for it";
  }
  void OnModelessOpened(Dialog& dialog) override { Act(dialog); }
  BoxAnswer OnBox(const ShownBox& box) override {
    if (answers_.empty()) return FirstAnswer(box.style);
    const BoxAnswer answer = answers_.front();
    answers_.pop_front();
    return answer;
  }

  bool Act(Dialog& dialog) {
    auto& waiting = inside_[dialog.TemplateId()];
    if (waiting.empty()) return false;
    const auto act = std::move(waiting.front());
    waiting.pop_front();
    const int outer = session_.TheScene().DefaultDialog();
    session_.TheScene().SetDefaultDialog(dialog.TemplateId());
    Try(act);
    session_.TheScene().SetDefaultDialog(outer);
    return true;
  }

  // What can't be done inside the panel's own work is told here, since no exception goes through the panel.
  static void Try(const std::function<void()>& act) {
    try {
      act();
    } catch (const NotPossible& why) {
      ADD_FAILURE() << why.what();
    }
  }

  SessionFolder folder_;
  std::vector<std::string> lines_;
  std::function<void(const std::string&)> onLine_;
  std::map<int, std::deque<std::function<void()>>> inside_;
  std::deque<BoxAnswer> answers_;
  Session session_{{folder_.Path()}, *this};
};

}  // namespace set32

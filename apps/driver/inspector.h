// What can be seen: the lines of every `show` statement.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "apps/driver/fake_host.h"
#include "apps/driver/module_files.h"
#include "apps/driver/scene.h"
#include "apps/driver/script_text.h"
#include "apps/stage/inspection.h"
#include "apps/stage/model/simulated_clock.h"

namespace set32 {

struct Shown {
  std::vector<std::string> lines;
  std::size_t headLength = 0;  // bytes of a line's start that repeat what was asked for
  bool oneLine = true;         // such a line can be expected
};

class Inspector {
 public:
  Inspector(Scene& scene, FakeHost& host, ModuleFiles& files, SimulatedClock& clock)
      : scene_(scene), host_(host), files_(files), clock_(clock) {}

  // The words behind `show`. Throws NotPossible.
  Shown Show(std::span<const Word> words);

  // "combo visible enabled index=4 ..."
  std::string Describe(const Control& control) const;
  std::string Describe(const ControlName& name) const { return Describe(scene_.Require(name).control); }

  // Where everything stands. Whoever may move pages takes this before, so that `show moved` knows where all was.
  struct Places {
    Rect page;
    Size client;
    std::map<int, Rect> controls;
    bool operator==(const Places&) const = default;
  };
  using AllPlaces = std::map<WindowHandle, Places>;
  AllPlaces PlacesNow() const;
  void NoteMoves(const AllPlaces& before);

  // Simulated time counts from here.
  void StartClock();
  // The host ended: nothing has moved yet.
  void ForgetMoves() { before_.clear(); }

 private:
  Shown ShowControl(const ControlName& name) const;
  Shown ShowPlace(std::span<const Word> words) const;
  Shown ShowMoved(std::span<const Word> words) const;
  Shown ShowTitle(std::span<const Word> words) const;
  Shown ShowPicture(std::span<const Word> words) const;
  Shown ShowTip(std::span<const Word> words) const;
  Shown ShowFocus(std::span<const Word> words) const;
  Shown ShowTime(std::span<const Word> words) const;
  Shown ShowPage(std::span<const Word> words) const;
  Shown ShowSettings(std::span<const Word> words) const;
  Shown ShowField(const Word& word) const;
  Shown ShowOpen(std::span<const Word> words) const;
  Shown ShowPixel(std::span<const Word> words) const;
  Shown ShowSum(std::span<const Word> words) const;
  Shown ShowDrawing(std::span<const Word> words) const;
  Shown ShowFile(std::span<const Word> words) const;

  struct Row;
  static std::span<const Row> Rows();

  Scene& scene_;
  FakeHost& host_;
  ModuleFiles& files_;
  SimulatedClock& clock_;
  std::optional<std::uint64_t> start_;
  AllPlaces before_;
};

}  // namespace set32

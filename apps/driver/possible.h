// What a person has before them, in words: how controls are called, what they offer, how dialogs are left. For hints,
// `help` and completion.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "apps/driver/scene.h"

namespace set32 {

const char* KindName(ControlKind kind);

// A text for the eye: "另存新檔(&A)" reads "另存新檔(A)".
std::string WithoutAccelerator(std::string text);

// What a person calls a control: its own text, its tip, the label before it, the group around it or the label above;
// empty when there is none of them.
std::string NameOf(Dialog& dialog, const Control& control);

// How a statement writes the control: "1210", or "148:1235" where the dialog isn't the one that is meant without.
std::string IdOf(const Scene& scene, const Dialog& dialog, const Control& control);

using ControlFilter = std::function<bool(const Control&)>;
// "1210 combo, 1212 edit" of those that can be seen and used.
std::string UsableControls(const Scene& scene, const Dialog& dialog, const ControlFilter& filter);

// What a combo, a tab bar or a list offers; a tab without a text has an empty one.
std::vector<std::string> EntriesOf(const Control& control);
// "#0 "75 dpi", #1 "100 dpi"" of the same.
std::string NumberedEntries(const Control& control);

// The answers that a box of this style takes.
std::vector<std::string> ButtonsOfBox(std::uint32_t style);

// "102, 148"
std::string OpenDialogs(const Scene& scene);

// "click 104:1 or click 104:2"
std::string WaysOut(const Scene& scene, const Dialog& dialog);

}  // namespace set32

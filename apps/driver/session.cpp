#include "apps/driver/session.h"

#include "host/module.h"
#include "resources/ids.h"

namespace set32 {

namespace {

std::string DialogLine(const Dialog& dialog) {
  return "dialog " + std::to_string(dialog.TemplateId());
}

std::string BoxLine(const ShownBox& box) {
  return "box " + Hexadecimal(box.style) + ' ' + Quote(box.caption) + ' ' + Quote(box.text) +
         (box.onThread ? " thread" : "");
}

}  // namespace

Session::Session(const AssemblyOptions& options, SessionListener& listener)
    : listener_(listener),
      assembly_(Assemble(options)),
      files_(assembly_->ThePlatform()),
      scene_(assembly_->Watch()) {
  Platform& platform = assembly_->ThePlatform();
  host_ = std::make_unique<FakeHost>(platform, assembly_->Watch(), assembly_->TheInput(),
                                     [this](const std::string& line) { listener_.OnLine(line); });
  user_ = std::make_unique<User>(scene_, assembly_->TheInput(), platform.clipboard, platform.system);
  inspector_ = std::make_unique<Inspector>(scene_, *host_, files_, assembly_->Clock());
  Listen();
  InstallPlatform(&platform);
}

Session::~Session() {
  InstallPlatform(nullptr);
  WindowWatch& watch = assembly_->Watch();
  watch.SetOpeningHook({});
  watch.SetOpenedHook({});
  watch.SetClosedHook({});
}

void Session::Listen() {
  WindowWatch& watch = assembly_->Watch();
  // The message dialog is told each time that it is shown, with what it says; every other one before it starts.
  watch.SetOpeningHook([this](Dialog& dialog) {
    if (dialog.TemplateId() != dialog::message) listener_.OnLine(DialogLine(dialog));
  });
  watch.SetOpenedHook([this](Dialog& dialog) { OnOpened(dialog); });
  watch.SetClosedHook([this](const Dialog& dialog, int result) { OnClosed(dialog, result); });
  host_->SetInside([this](std::uint32_t message) { listener_.OnHostMessage(message); });
  assembly_->TheSystem().OnBeep([this] { listener_.OnLine("beep"); });
  assembly_->TheBoxes().SetListener([this](const ShownBox& box) { listener_.OnLine(BoxLine(box)); });
  assembly_->TheBoxes().SetAnswerer([this](const ShownBox& box) {
    user_->SetBoxOpen(true);
    const BoxAnswer answer = listener_.OnBox(box);
    user_->SetBoxOpen(false);
    return answer;
  });
}

void Session::OnOpened(Dialog& dialog) {
  if (dialog.TemplateId() == dialog::message) {
    listener_.OnLine(DialogLine(dialog) + ' ' + Quote(dialog.Title()) + ' ' +
                     Quote(dialog.Get<Label>(id115::text).Text()));
  } else if (dialog.IsModal()) {
    listener_.OnModalOpened(dialog);
  } else if (onScreen_.insert(dialog.Handle()).second) {
    listener_.OnModelessOpened(dialog);
  }
}

// A modal dialog gives its result, and the advanced dialog, which stands for one, that of its only way out.
void Session::OnClosed(const Dialog& dialog, int result) {
  onScreen_.erase(dialog.Handle());
  std::string line = DialogLine(dialog) + " closed";
  if (dialog.IsModal()) line += ' ' + std::to_string(result);
  if (dialog.TemplateId() == dialog::gamma) line += ' ' + std::to_string(dialog_result::cancel);
  listener_.OnLine(line);
}

bool Session::Open() {
  files_.OnModuleLoaded();
  inspector_->StartClock();
  const Inspector::AllPlaces before = inspector_->PlacesNow();
  const bool stands = host_->Open();
  scene_.SetPage(host_->Page());
  inspector_->NoteMoves(before);
  return stands;
}

void Session::Resize(Size client) {
  const Inspector::AllPlaces before = inspector_->PlacesNow();
  user_->Resize(client);
  inspector_->NoteMoves(before);
}

void Session::Restart() {
  InstallPlatform(nullptr);
  host_->EndProcess();
  scene_.SetPage(0);
  files_.OnModuleUnloaded();
  onScreen_.clear();
  inspector_->ForgetMoves();
  InstallPlatform(&assembly_->ThePlatform());
}

bool Session::IsClosed(WindowHandle window) const {
  for (const Dialog* dialog : scene_.Standing()) {
    if (dialog->Handle() == window) return !dialog->IsVisible();
  }
  return true;
}

}  // namespace set32

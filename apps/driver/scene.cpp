#include "apps/driver/scene.h"

#include <algorithm>
#include <string>

#include "apps/driver/not_possible.h"
#include "apps/driver/possible.h"

namespace set32 {

std::vector<Dialog*> Scene::Standing() const {
  std::vector<Dialog*> standing = watch_.Standing();
  std::erase_if(standing, [](const Dialog* dialog) { return !dialog->IsAlive(); });
  return standing;
}

Dialog* Scene::Find(int dialogId) const {
  Dialog* found = nullptr;
  for (Dialog* candidate : Standing()) {
    if (candidate->TemplateId() != dialogId) continue;
    found = candidate;
    if (candidate->Handle() == page_) break;
  }
  return found;
}

Dialog& Scene::Require(int dialogId) const {
  if (Dialog* found = Find(dialogId)) return *found;
  if (dialogId == dialog::general) throw NotPossible("no page stands", "`open` opens the panel");
  const std::string open = OpenDialogs(*this);
  const std::string hint = open.empty() ? "`open` opens the panel" : "these are: " + open;
  if (dialogId == dialog::sheet) throw NotPossible("no sheet stands", hint);
  throw NotPossible("dialog " + std::to_string(dialogId) + " isn't open", hint);
}

FoundControl Scene::Require(const ControlName& name) const {
  Dialog& holder = Require(name.dialog.value_or(default_));
  Control* control = holder.Find(name.id);
  if (control == nullptr || !control->Exists()) {
    throw NotPossible("dialog " + std::to_string(holder.TemplateId()) + " has no control " + std::to_string(name.id),
                      WhereElse(holder, name.id));
  }
  return {holder, *control};
}

// Where a control of that number does stand, or what there is instead.
std::string Scene::WhereElse(const Dialog& holder, int id) const {
  for (const Dialog* other : Standing()) {
    const Control* control = other->Find(id);
    if (control != nullptr && control->Exists()) return "it stands in another one: " + IdOf(*this, *other, *control);
  }
  return "it has " + UsableControls(*this, holder, [](const Control&) { return true; });
}

Dialog* Scene::PageInFront() const {
  Dialog* general = Find(dialog::general);
  if (general != nullptr && !general->IsVisible()) {
    Dialog* advanced = Find(dialog::advanced);
    if (advanced != nullptr && advanced->IsVisible()) return advanced;
  }
  return general;
}

Dialog* Scene::ModalInFront() const {
  const std::vector<Dialog*> standing = Standing();
  const auto last = std::find_if(standing.rbegin(), standing.rend(),
                                 [](const Dialog* dialog) { return dialog->IsModal() && dialog->IsVisible(); });
  return last == standing.rend() ? nullptr : *last;
}

std::optional<Scene::Focus> Scene::Focused() const {
  for (Dialog* dialog : Standing()) {
    if (Control* control = dialog->Focused()) return Focus{dialog, control};
  }
  return {};
}

}  // namespace set32

#include "platform/framework/ComponentPath.h"

#include "platform/framework/Application.h"

namespace zy {
namespace {

/// Takes the first name off the path.
std::string_view TakeName(std::string_view& Path) {
  const std::string_view First = Path.substr(0, Path.find('.'));
  Path.remove_prefix(First.size() == Path.size() ? First.size() : First.size() + 1);
  return First;
}

TComponent* Follow(TComponent* From, std::string_view Path) {
  while (From != nullptr && !Path.empty()) From = From->FindComponent(TakeName(Path));
  return From;
}

}  // namespace

std::string ComponentPath(const TComponent* Component, const TComponent* Root) {
  if (Component == nullptr || Component->Name().empty()) return {};
  std::string Path = Component->Name();
  bool Complete = true;
  for (const TComponent* Up = Component->Owner(); Up != nullptr && Up != &Application(); Up = Up->Owner()) {
    if (Up == Root) return Complete ? Path : std::string();
    if (Up->Name().empty()) Complete = false;
    Path.insert(0, Up->Name() + '.');
  }
  return Complete ? Path : std::string();
}

TComponent* ComponentFromPath(std::string_view Path, const TComponent* Root) {
  if (Path.empty() || Path.back() == '.') return nullptr;  // the name behind the last dot is missing
  if (Root != nullptr) {
    std::string_view Rest = Path;
    TComponent* const First = Root->FindComponent(TakeName(Rest));
    if (TComponent* const Found = Follow(First, Rest)) return Found;
  }
  const std::string_view Name = TakeName(Path);
  TComponent* const First = Screen().FindByName(Name);
  return Follow(First == nullptr ? Application().FindComponent(Name) : First, Path);
}

}  // namespace zy

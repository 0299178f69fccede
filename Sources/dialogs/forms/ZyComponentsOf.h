#pragma once

#include <string>
#include <vector>

#include "dialogs/frames/ZyObjectItems.h"
#include "platform/framework/Application.h"
#include "series/vectors/ZyDoubleVector.h"

namespace zy {

/// All components of a class in the program's forms and data modules.
template <class T>
std::vector<T*> AllOf() {
  std::vector<T*> Result;
  for (const auto* Roots : {&Screen().Forms(), &Screen().DataModules()})
    for (TComponent* Root : *Roots)
      for (TComponent* Each : Root->Components())
        if (auto* const Found = dynamic_cast<T*>(Each)) Result.push_back(Found);
  return Result;
}

/// Offers all vectors of the program: by their names, with the owner's in front unless that is Home.
template <class TCombo>
void AddVectorsTo(TCombo& Combo, const TComponent* Home) {
  for (const TZyDoubleVector* Vector : AllOf<TZyDoubleVector>()) {
    const bool IsAtHome = Vector->Owner() == Home || Vector->Owner() == nullptr;
    Combo.AddObject((IsAtHome ? "" : Vector->Owner()->Name() + ".") + Vector->Name(), Vector);
  }
}

}  // namespace zy

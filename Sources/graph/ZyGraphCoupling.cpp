#include "graph/ZyGraphCoupling.h"

#include <utility>

#include "graph/ZyGraph2D.h"

namespace zy {
namespace {

/// Makes a list hold these objects; mostly it does already.
template <class T>
void Take(TRefList<T>& List, const std::vector<T*>& Objects) {
  std::size_t Index = 0;
  bool IsSame = List.size() == Objects.size();
  for (const T* Object : List) IsSame = IsSame && Object == Objects[Index++];
  if (IsSame) return;
  List.Clear();
  for (T* Object : Objects) List.Add(Object);
}

}  // namespace

TZyGraphCoupling::TZyGraphCoupling(TZyGraph2D& Graph) : FGraph(Graph), FAxes(&Graph), FChildren(&Graph) {}

void TZyGraphCoupling::Find() {
  const TZyAxis* const X = FGraph.PrimaryXAxis();
  std::vector<TZyAxis*> Axes = FGraph.Axes();
  std::vector<TZyGraph2D*> Children;
  FIsCoupled = X != nullptr && X->Parent() != &FGraph;
  if (FIsCoupled) {
    Axes.push_back(FGraph.PrimaryXAxis());
  } else if (X != nullptr && FGraph.Owner() != nullptr) {
    for (TComponent* Component : FGraph.Owner()->Components()) {
      auto* const Other = dynamic_cast<TZyGraph2D*>(Component);
      if (Other != nullptr && Other != &FGraph && Other->PrimaryXAxis() == X) Children.push_back(Other);
    }
  }
  Take(FAxes, Axes);
  Take(FChildren, Children);
}

TZyGraph2D* TZyGraphCoupling::Master() const {
  const TZyAxis* const X = FGraph.PrimaryXAxis();
  return FIsCoupled && X != nullptr ? dynamic_cast<TZyGraph2D*>(X->Parent()) : nullptr;
}

TZyGraph2D* TZyGraphCoupling::NewMaster() {
  TZyGraph2D* const Result = Master();
  const std::uint64_t Handle = Result != nullptr ? Result->LiveHandle() : 0;
  return std::exchange(FKnownMaster, Handle) == Handle ? nullptr : Result;
}

std::vector<TZyGraph2D*> TZyGraphCoupling::Others() const {
  std::vector<TZyGraph2D*> Result;
  for (TZyGraph2D* Child : FChildren) Result.push_back(Child);
  TZyGraph2D* const Known = Master();
  if (Known == nullptr) return Result;
  Result.push_back(Known);
  for (TZyGraph2D* Sibling : Known->ChildGraphs())
    if (Sibling != &FGraph) Result.push_back(Sibling);
  return Result;
}

std::vector<TZyGraph2D*> TZyGraphCoupling::Stacked() const {
  TZyGraph2D* const Bottom = Master() != nullptr ? Master() : &FGraph;
  std::vector<TZyGraph2D*> Result;
  for (TZyGraph2D* Child : Bottom->ChildGraphs().Reversed()) Result.push_back(Child);
  Result.push_back(Bottom);
  return Result;
}

}  // namespace zy

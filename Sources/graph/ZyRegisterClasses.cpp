#include "graph/ZyRegisterClasses.h"

#include "annotations/ZyRichLabel.h"
#include "graph/ZyGraph2D.h"
#include "platform/data/TDataSource.h"
#include "platform/framework/ClassRegistry.h"
#include "platform/sql/TSqlDataSet.h"
#include "series/ZyPointSeries.h"
#include "series/vectors/ZyDoubleVector.h"
#include "undo/ZyUndoStack.h"

namespace zy {

void RegisterChartClasses() {
  const TClassInfo* const Classes[] = {
      &TDataSource::StaticClassInfo(),     &TSqlDataSet::StaticClassInfo(),  &TZyAxis::StaticClassInfo(),
      &TZyDoubleVector::StaticClassInfo(), &TZyGraph2D::StaticClassInfo(),   &TZyLineSeries::StaticClassInfo(),
      &TZyPointSeries::StaticClassInfo(),  &TZyRichLabel::StaticClassInfo(), &TZyUndoStack::StaticClassInfo()};
  for (const TClassInfo* Info : Classes) RegisterClass(*Info);
}

}  // namespace zy

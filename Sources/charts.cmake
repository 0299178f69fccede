# The chart library: graph, series and annotations refer to each other and so are one target.
zy_add_library(
  zy_charts
  SOURCES
    annotations/ZyRichLabel.cpp
    graph/ZyCustomGraph.cpp
    graph/ZyCustomGraphOutput.cpp
    graph/ZyGraph2D.cpp
    graph/ZyGraph2DGestures.cpp
    graph/ZyGraph2DOutput.cpp
    graph/ZyGraph2DPaint.cpp
    graph/ZyGraph2DScroll.cpp
    graph/ZyGraph2DZoom.cpp
    graph/ZyImageFileNames.cpp
    graph/ZyPollingThread.cpp
    graph/ZyRegisterClasses.cpp
    graph/ZyZoomSettings.cpp
  LINK zy_series zy_sql)
set_target_properties(zy_charts PROPERTIES EXPORT_NAME Charts)
add_library(Zyphos::Charts ALIAS zy_charts)

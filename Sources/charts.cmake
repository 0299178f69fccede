# The chart library: graph, series and annotations refer to each other and so are one target.
zy_add_library(
  zy_charts
  SOURCES
    annotations/ZyRichLabel.cpp
    graph/ZyCustomGraph.cpp
    graph/ZyCustomGraphOutput.cpp
    graph/ZyDataAreaPainter.cpp
    graph/ZyGraph2D.cpp
    graph/ZyGraph2DInput.cpp
    graph/ZyGraph2DOutput.cpp
    graph/ZyGraph2DPaint.cpp
    graph/ZyGraphCoupling.cpp
    graph/ZyGraphGestures.cpp
    graph/ZyGraphPainter.cpp
    graph/ZyGraphPicture.cpp
    graph/ZyGraphZoom.cpp
    graph/ZyImageFileNames.cpp
    graph/ZyPollingThread.cpp
    graph/ZyRegisterClasses.cpp
    graph/ZyZoomSettings.cpp
    series/ZyBubbles.cpp
    series/ZyChildSeries.cpp
    series/ZyCustomOHLC.cpp
    series/ZyFunctionSeries.cpp
    series/ZyLineSeries.cpp
    series/ZyMovingAverage.cpp
    series/ZyOHLC.cpp
    series/ZyPixelIndex.cpp
    series/ZyPointLook.cpp
    series/ZyPointSeries.cpp
    series/ZySeries.cpp
    series/ZySeriesDrawing.cpp
    series/ZySeriesInput.cpp
    series/ZySeriesJoining.cpp
    series/ZySeriesLegend.cpp
    series/ZySeriesPoints.cpp
    series/ZySeriesRanges.cpp
    series/ZySeriesRecord.cpp
  LINK zy_axes zy_calculations zy_captions zy_controls zy_shapes zy_sql)
set_target_properties(zy_charts PROPERTIES EXPORT_NAME Charts)
add_library(Zyphos::Charts ALIAS zy_charts)

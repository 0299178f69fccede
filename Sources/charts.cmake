# The chart library: graph, axes, series, annotations, undo and persistence refer to each other and so are one target.
zy_add_library(
  zy_charts
  SOURCES
    annotations/ZyFont.cpp
    annotations/ZyRichCaption.cpp
    axes/ZyAxis.cpp
    axes/ZyAxisLayout.cpp
    axes/ZyAxisPaint.cpp
    axes/ZyAxisRanging.cpp
    axes/ZyAxisTicks.cpp
    graph/ZyAreaSettings.cpp
    graph/ZyArrowSettings.cpp
    graph/ZyColors.cpp
    graph/ZyCustomGraph.cpp
    graph/ZyDrawing.cpp
    graph/ZyDrawingBars.cpp
    graph/ZyDrawingBoxes.cpp
    graph/ZyDrawingCylinders.cpp
    graph/ZyDrawingSymbols.cpp
    graph/ZyGDI.cpp
    graph/ZyGradientBrushes.cpp
    graph/ZyGradientSettings.cpp
    graph/ZyGraph2D.cpp
    graph/ZyLineSettings.cpp
    graph/ZyPointSymbolSettings.cpp
    graph/ZyRegisterClasses.cpp
    graph/ZyStringFunctions.cpp
    persistence/ZyIniArchive.cpp
    persistence/ZyIO.cpp
    persistence/ZyStreamArchive.cpp
    persistence/ZyStyleRecords.cpp
    persistence/ZyTextArchive.cpp
    persistence/ZyXmlArchive.cpp
    series/ZyDoubleVector.cpp
    series/ZyLineSeries.cpp
    series/ZySeries.cpp
    series/ZySeriesPoints.cpp
    undo/ZyUndoList.cpp
    undo/ZyUndoLog.cpp
    undo/ZyUndoStack.cpp
  LINK zy_controls zy_drawing zy_framework zy_numerics zy_texts)
set_target_properties(zy_charts PROPERTIES EXPORT_NAME Charts)
add_library(Zyphos::Charts ALIAS zy_charts)

// Texts of what programs of the toolkit use: models behind vectors, widgets, the designer.

// ---- Models ----

ZY_TEXT(_sModelNoColumn, "The model has no column %d")
ZY_TEXT(_sModelColumnGone, "The column was removed from the model")
ZY_TEXT(_sModelRootGone, "The item whose rows were followed was removed from the model")
ZY_TEXT(_sModelGone, "The model was destroyed")
ZY_TEXT(_sModelThread, "A model that lives in another thread cannot be followed")
ZY_TEXT(_sModelOtherRoot, "The root is an index of another model")
ZY_TEXT(_sModelRestless, "The model changes whenever it is read")
ZY_TEXT(_sModelUnfit, "Row %d, column %d: \"%s\" is neither a number nor a date")
ZY_TEXT(_sModelUnfitMore, "Row %d, column %d: \"%s\" is neither a number nor a date, nor are %d more")

// ---- Designer ----

ZY_TEXT(_sDesignerSettings, "Chart settings...")
ZY_TEXT(_sDesignerError, "A property of a chart")
ZY_TEXT(_sDesignerCharts, "Charts")
ZY_TEXT(_sDesignerControls, "Chart Controls")
ZY_TEXT(_sDesignerChart, "A chart with axes")
ZY_TEXT(_sDesignerPie, "A pie or donut chart")
ZY_TEXT(_sDesignerLegend, "The legend of a chart with axes, on it or beside it")
ZY_TEXT(_sDesignerPieLegend, "The legend of a pie chart, on it or beside it")
ZY_TEXT(_sDesignerHorizontalMarker, "A line on a chart, at a value of its Y axis")
ZY_TEXT(_sDesignerVerticalMarker, "A line on a chart, at a value of its X axis")
ZY_TEXT(_sDesignerCrossHair, "A cross hair on a chart")
ZY_TEXT(_sDesignerArrowLabel, "A text with an arrow at a point of a chart")
ZY_TEXT(_sDesignerColor, "Picks a color")
ZY_TEXT(_sDesignerInteger, "Edits a whole number")
ZY_TEXT(_sDesignerReal, "Edits a real, a date or a time span")
ZY_TEXT(_sDesignerSteps, "Edits a real by steps")
ZY_TEXT(_sDesignerDashes, "Picks the dashes of a line")
ZY_TEXT(_sDesignerPattern, "Picks the pattern of an area")
ZY_TEXT(_sDesignerSymbol, "Picks a point symbol")
ZY_TEXT(_sDesignerCaption, "Edits a caption with fonts and values")

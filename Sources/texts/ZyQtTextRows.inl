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

// Rows of the platform layer, behind the chart rows of the text table. Same form as ZyTextRows.inl.

// ---- Components and streams ----

ZY_TEXT(_sCannotAssign, "Cannot assign a %s to a %s")
ZY_TEXT(_sClassNotFound, "Class %s not found")
ZY_TEXT(_sDuplicateName, "A component named %s already exists")
ZY_TEXT(_sInvalidName, "\"%s\" is not a valid component name")
ZY_TEXT(_sReadBeyondEnd, "Stream read error: %d bytes wanted, %d left")
ZY_TEXT(_sInvalidNumber, "\"%s\" is not a valid number")
ZY_TEXT(_sCannotOpenFile, "Cannot open file \"%s\"")

// ---- Language files: file, line, content ----

ZY_TEXT(_sLanguageRow, "%s, line %d: \"%s\" is not a row of the form symbol = text")
ZY_TEXT(_sLanguageSymbol, "%s, line %d: \"%s\" begins with an unknown symbol")
ZY_TEXT(_sLanguageTwice, "%s, line %d: \"%s\" gives a symbol a second text")
ZY_TEXT(_sLanguageUtf8, "%s, line %d: \"%s\" is not valid UTF-8")
ZY_TEXT(_sLanguageUnreadable, "%s: read error behind line %d")

// ---- Properties and values ----

ZY_TEXT(_sPropOutOfRange, "%d is out of range for property \"%s\"")
ZY_TEXT(_sPropUnknownValue, "\"%s\" is no value of property \"%s\"")
ZY_TEXT(_sPropNotAllowed, "\"%s\" is no value of property \"%s\"; allowed are %s")
ZY_TEXT(_sPropLimits, "%s to %s")
ZY_TEXT(_sPropWrongKind, "Property \"%s.%s\" has no %s value")
ZY_TEXT(_sPropWrongObject, "Property \"%s\" cannot take an object of class %s")
ZY_TEXT(_sVariantConversion, "Cannot convert %s to %s")

// ---- Undo labels beyond those of single properties ----

ZY_TEXT(_sGraphLook, "Look of the chart")
ZY_TEXT(_sSeriesColor, "Color of the series")

// ---- Why a chart is empty: what, and where it lacks ----

ZY_TEXT(_sDiagNoSeries, "%s has no series: one joins when it has both axes and data")
ZY_TEXT(_sDiagNoRoom, "%s has no room for a data area in %d x %d pixels")
ZY_TEXT(_sDiagHidden, "%s is hidden: Visible is off")
ZY_TEXT(_sDiagNoLook, "%s draws nothing: line, area and symbols are switched off")
ZY_TEXT(_sDiagNotSet, "%s is in no graph: %s is not set")
ZY_TEXT(_sDiagNoData, "%s is in no graph: neither XData nor YData is set")
ZY_TEXT(_sDiagAxisAlone, "%s is in no graph: its axis %s lies on none")
ZY_TEXT(_sDiagEmpty, "%s has no points: the vector of %s is empty")
ZY_TEXT(_sDiagTooFew, "%s has %d points and needs %d")
ZY_TEXT(_sDiagOutliers, "%s has no points: all are marked as outliers")
ZY_TEXT(_sDiagNoNumbers, "%s has no points: none has finite values")
ZY_TEXT(_sDiagLog, "%s has no place on %s, which is logarithmic: none of its values is above 0")
ZY_TEXT(_sDiagOutside, "%s lies beside %s, which shows %s to %s: its values go from %s to %s")
ZY_TEXT(_sDiagNotComputed, "%s could not be computed from its data")

// ---- Captions ----

ZY_TEXT(_sCaptionNoVariable, "\"%s\" is no variable of a caption")

// ---- Files and component streams ----

ZY_TEXT(_sCannotWriteFile, "Cannot write file \"%s\"")
ZY_TEXT(_sSeekFailed, "Stream seek error: no position %d")
ZY_TEXT(_sTextTooLong, "A text of %d bytes is too long for a stream")
ZY_TEXT(_sUnknownTag, "Unknown value tag %d at position %d")
ZY_TEXT(_sMistypedValue, "Invalid value: %s found, %s wanted")
ZY_TEXT(_sStreamTooDeep, "Values lie more than %d levels deep")
ZY_TEXT(_sNotAForm, "The stream does not begin with a component")
ZY_TEXT(_sOtherClassStored, "A %s is stored, which is no %s")
ZY_TEXT(_sRefOfOtherClass, "\"%s\" is a %s, which is no %s")
ZY_TEXT(_sRefWithoutOwner, "The owner of \"%s\" cannot be found")
ZY_TEXT(_sPropNotInClass, "Class %s has no property \"%s\"")

// ---- Key-value files: source, line, reason ----

ZY_TEXT(_sIniSyntax, "%s, line %d: %s")
ZY_TEXT(_sIniOpenSection, "the section name does not end with a bracket")
ZY_TEXT(_sIniNoEqualSign, "neither a section nor a key with a value")
ZY_TEXT(_sIniNoSection, "a key stands before the first section")
ZY_TEXT(_sIniBadName, "\"%s\" cannot be the name of a section or a key")
ZY_TEXT(_sIniOpenQuote, "the quoted value does not end with a quote")
ZY_TEXT(_sIniBadEscape, "the quoted value has a malformed escape")
ZY_TEXT(_sIniNoUtf8, "not valid UTF-8")
ZY_TEXT(_sIniNulCharacter, "a character with the code 0")
ZY_TEXT(_sIniMistyped, "\"%s\" is no value for key \"%s\" in section \"%s\"")

// ---- XML: source, line, column, reason ----

ZY_TEXT(_sXmlSyntax, "%s, line %d, column %d: %s")
ZY_TEXT(_sXmlBadCharacter, "a character that XML does not allow")
ZY_TEXT(_sXmlBadName, "\"%s\" is no XML name")
ZY_TEXT(_sXmlBadText, "\"%s\" cannot hold this text: it has characters that XML does not allow")
ZY_TEXT(_sXmlBadReference, "a malformed or unknown reference")
ZY_TEXT(_sXmlMisplaced, "\"%s\" may not stand here")
ZY_TEXT(_sXmlAttributeTwice, "attribute \"%s\" stands twice")
ZY_TEXT(_sXmlDocType, "document type declarations are not allowed")
ZY_TEXT(_sXmlTextOutside, "text outside the root element")
ZY_TEXT(_sXmlNoRoot, "there is no root element")
ZY_TEXT(_sXmlSecondRoot, "there is a second root element")
ZY_TEXT(_sXmlTooDeep, "elements are nested more than %d levels deep")
ZY_TEXT(_sXmlNullNode, "There is no XML node to work on")
ZY_TEXT(_sXmlNoAttribute, "Node \"%s\" has no attribute \"%s\"")
ZY_TEXT(_sXmlNoChildAt, "Node \"%s\" has no child node at index %d")
ZY_TEXT(_sXmlNotChild, "Node \"%s\" is no child of node \"%s\"")

// ---- Drawing ----

ZY_TEXT(_sPictureSize, "A picture cannot have a side of %d pixels")
ZY_TEXT(_sNoPixel, "The picture has no pixel at %d, %d")
ZY_TEXT(_sNoPicture, "%s holds no picture")
ZY_TEXT(_sCannotEncode, "Cannot write %s as \"%s\": %s")
ZY_TEXT(_sUnknownFormat, "the format is unknown")
ZY_TEXT(_sRecordingSize, "A recording needs a page of some extent")
ZY_TEXT(_sResolution, "Resolution out of range")
ZY_TEXT(_sFontSize, "A font cannot have the size %s")
ZY_TEXT(_sNoHatchStyle, "There is no hatch style %d")
ZY_TEXT(_sGradientPositions, "Gradient positions must ascend from 0 to 1, one for each colour")
ZY_TEXT(_sGradientPoints, "A path gradient needs two points at least")
ZY_TEXT(_sGradientColors, "A path gradient needs one surround colour at least")

// ---- Controls ----

ZY_TEXT(_sControlInItself, "Control \"%s\" cannot lie inside itself")
ZY_TEXT(_sWidgetNeedsApplication, "A widget needs an application object: \"%s\"")
ZY_TEXT(_sMenuItemInItself, "Menu item \"%s\" cannot lie inside itself")
ZY_TEXT(_sMenuIndex, "A menu has no place %d for an item")
ZY_TEXT(_sMenuShortCut, "\"%s\" names no keys")
ZY_TEXT(_sApplicationWithoutWidgets, "The program's application object is one without widgets")
ZY_TEXT(_sCannotFocus, "Control \"%s\" is invisible or disabled and cannot have the keyboard")
ZY_TEXT(_sScrollRange, "A scroll bar cannot range from %d down to %d")

// ---- Printer and clipboard ----

ZY_TEXT(_sNoPrinter, "There is no printer")
ZY_TEXT(_sUnknownPrinter, "There is no printer named \"%s\"")
ZY_TEXT(_sCannotPrint, "Cannot print \"%s\"")
ZY_TEXT(_sNotPrinting, "The printer is not printing")
ZY_TEXT(_sPrinting, "The printer is printing")
ZY_TEXT(_sClipboardNeedsApplication, "The clipboard needs an application object with windows")

// ---- Databases ----

ZY_TEXT(_sDataSetInactive, "Data set \"%s\" is not open")
ZY_TEXT(_sDataSetNoField, "Data set \"%s\" has no field \"%s\"")
ZY_TEXT(_sDataSetReadOnly, "Data set \"%s\" cannot be changed")
ZY_TEXT(_sDataSetNotEditing, "Field \"%s\" cannot be written: data set \"%s\" is not being edited")
ZY_TEXT(_sDataSetNoRecord, "Data set \"%s\" has no record to change")
ZY_TEXT(_sDataSetBookmark, "The bookmark leads to no record of data set \"%s\"")
ZY_TEXT(_sDataSetNothing, "Data set \"%s\" has neither a table name nor a query")
ZY_TEXT(_sDataSetTooLarge, "Data set \"%s\" has more than %d records")
ZY_TEXT(_sDataSetRecordGone, "Data set \"%s\": the record is no longer in the table")
ZY_TEXT(_sDataSourceFixed, "The data source of this link cannot be exchanged")
ZY_TEXT(_sFieldNoNumber, "Field \"%s\": \"%s\" is neither a number nor a date")
ZY_TEXT(_sDatabaseKind, "\"%s\" is no kind of database that can be connected to")
ZY_TEXT(_sDatabaseAddress, "The address of %s is malformed")
ZY_TEXT(_sDatabaseNoFile, "There is no database file \"%s\"")
ZY_TEXT(_sDatabaseNoApplication, "A database needs an application object: %s")
ZY_TEXT(_sDatabaseNoDriver, "The driver %s for %s is not installed")
ZY_TEXT(_sDatabaseConnect, "Cannot connect to %s: %s")
ZY_TEXT(_sDatabaseLost, "The connection to %s was lost: %s")
ZY_TEXT(_sDatabaseStatement, "%s refuses \"%s\": %s")
ZY_TEXT(_sDatabaseNoRecords, "%s: \"%s\" gives no records")

// ---- Formulas ----

ZY_TEXT(_sFormulaTooDeep, "The formula is nested more than %d brackets deep")
ZY_TEXT(_sVariableGone, "The variable \"%s\" does not exist any more")
ZY_TEXT(_sNothingToCall, "There is nothing to call behind the name \"%s\"")
ZY_TEXT(_sNoArgument, "There is no variable \"%s\" to evaluate the formula over")
ZY_TEXT(_sResultCount, "%u results cannot take the values of %u arguments")

// ---- Zooming ----
ZY_TEXT(_sZoomWheelZoom, "Graph zoom by mouse wheel")
ZY_TEXT(_sZoomTouchGestures, "Graph zoom by touch pad")
ZY_TEXT(_sZoomKeyboardZoom, "Graph zoom by keyboard")

// ---- Analysis curves ----
ZY_TEXT(_sAveragingNoWeight, "All weights of the values to average are zero")
ZY_TEXT(_sFitX, "X-Value")
ZY_TEXT(_sFitVariable, "Variable %s")
ZY_TEXT(_sFitWithoutValue, "SimplexFit: the function has no finite value at the data for any of the coefficients tried")

// ---- Series ----
ZY_TEXT(_sSeriesFreed, "An event handler freed the series")
ZY_TEXT(_sLegendFreed, "An event handler freed the legend")
ZY_TEXT(_sSeriesChanged, "A transformation of values changed what series read")
ZY_TEXT(_sPiePalette, "Pie/Donut colors of segments")
ZY_TEXT(_sPieEmpty, "empty")
ZY_TEXT(_sPieExplodeOnClick, "Pie/Donut segments moved by click")

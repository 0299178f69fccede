// Texts of the data that stay in a database.

ZY_TEXT(_sTableUnset, "Table data \"%s\" has no table, or no field for X or for the values")
ZY_TEXT(_sTableNoNumbers, "%s: column \"%s\" of table \"%s\" holds no numbers")
ZY_TEXT(_sTableTextValue, "%s: column \"%s\" of table \"%s\" holds the text \"%s\" where a number is wanted")
ZY_TEXT(_sTableNoIndex,
        "%s: table \"%s\" has no index that begins with \"%s\", so that every zoom reads all of it. This makes one: %s")
ZY_TEXT(_sTableNoSummary,
        "%s: table \"%s\" has %d rows and no summary, so that wide ranges take long. MakeSummary makes one")
ZY_TEXT(_sTableExcerpt, "%s cannot be computed: its data are only what a picture needs of the %d rows of table \"%s\"")
ZY_TEXT(_sTableNotSummary, "%s: table \"%s\" is no summary of another table, and is left alone")

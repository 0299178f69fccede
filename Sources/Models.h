#pragma once

// Item models of the toolkit behind vectors and texts. Links Zyphos::Models.

#include "series/models/ZyModelNumbers.h"
#include "series/models/ZyModelTexts.h"

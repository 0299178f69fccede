#pragma once

/// All settings objects that a component owns and publishes.

#include "graph/ZyAreaSettings.h"
#include "graph/ZyArrowSettings.h"
#include "graph/ZyGradientBrushes.h"
#include "graph/ZyGradientSettings.h"
#include "graph/ZyLineSettings.h"
#include "graph/ZyPointSymbolSettings.h"

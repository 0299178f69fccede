#pragma once

/// All settings objects that a component owns and publishes.

#include "graph/styles/ZyAreaSettings.h"
#include "graph/styles/ZyArrowSettings.h"
#include "graph/styles/ZyGradientBrushes.h"
#include "graph/styles/ZyGradientSettings.h"
#include "graph/styles/ZyLineSettings.h"
#include "graph/styles/ZyPointSymbolSettings.h"

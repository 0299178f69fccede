#pragma once

// Charts, and what lies on them, as widgets of the toolkit. Links Zyphos::Widgets.

#include "widgets/ZyChartWidget.h"
#include "widgets/ZyLegendWidgets.h"
#include "widgets/ZyMarkerWidgets.h"
#include "widgets/ZyPieWidget.h"

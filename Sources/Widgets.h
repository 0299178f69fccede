#pragma once

// Charts as widgets of the toolkit. Links Zyphos::Widgets.

#include "widgets/ZyChartWidget.h"
#include "widgets/ZyPieWidget.h"

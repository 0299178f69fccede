#pragma once

// Charts over tables that no memory holds; link Zyphos::Tables.

#include "tables/ZyTableData.h"

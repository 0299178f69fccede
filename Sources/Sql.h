#pragma once

// Data sets that read databases by SQL; link Zyphos::Sql.

#include "platform/sql/TSqlDataSet.h"

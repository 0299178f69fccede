#pragma once

// The pick and edit controls as widgets of the toolkit. Links Zyphos::PickWidgets.

#include "dialogs/widgets/ZyPickWidgets.h"

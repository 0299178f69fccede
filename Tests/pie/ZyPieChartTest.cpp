#include "pie/ZyPieDonut.h"

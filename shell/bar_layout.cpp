#include "shell/bar_layout.h"

int gListNumOfStatBarOffsetY = 671;

#include "core/host.h"

const char* gThemePath = "./";

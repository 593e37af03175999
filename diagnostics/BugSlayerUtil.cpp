#include "diagnostics/BugSlayerUtil.h"

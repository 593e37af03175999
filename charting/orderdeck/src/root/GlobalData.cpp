#include "charting/orderdeck/src/root/GlobalData.h"

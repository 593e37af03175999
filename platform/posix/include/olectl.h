// Connection points by the header's other usual name.
#pragma once

#include "ocidl.h"
#include "winerror.h"

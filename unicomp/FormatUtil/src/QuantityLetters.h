#pragma once

#include "platform/text.h"

// What stands behind an abbreviated quantity. Loaded on first use and kept for the life of the process; on
// the window's thread.
const CString& thousands_letter();
const CString& millions_letter();

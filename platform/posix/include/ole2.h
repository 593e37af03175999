// Everything of object creation and automation.
#pragma once

#include "oaidl.h"
#include "objbase.h"
#include "oleauto.h"

// Starts an object that can be started; one that has no IRunnableObject runs already: S_OK.
HRESULT OleRun(LPUNKNOWN pUnknown);

// The COM vocabulary of both systems, under its own names. On Windows the headers are the system's;
// natively they come from platform/posix/include and hold exactly what is in use.
#pragma once

#include <windows.h>

#include <ole2.h>

#include <oaidl.h>
#include <ocidl.h>

#include <comdef.h>

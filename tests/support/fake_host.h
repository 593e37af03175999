// The host as real COM objects that write down every call and fail as told.
#pragma once

#include "tests/support/fake_center.h"
#include "tests/support/fake_class.h"
#include "tests/support/fake_lookup.h"
#include "tests/support/fake_profile.h"
#include "tests/support/fake_services.h"
#include "tests/support/host_record.h"

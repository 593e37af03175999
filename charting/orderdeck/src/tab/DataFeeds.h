#pragma once

#include "platform/text.h"

namespace OV_OrderDeck {

// The data feed that serves the symbols of a broker plug-in, empty for an unknown plug-in and in a program
// without a settings root. The association behind it is read on first use and kept for the process. Bar's
// thread. Throws _com_error with E_OUTOFMEMORY.
CString data_feed_of_plugin(const CString& plugin);

}  // namespace OV_OrderDeck

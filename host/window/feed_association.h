// Tells the bar which data feed serves the plug-ins of this application.
#pragma once

namespace host {

// Writes one row per plug-in below the current user's
// "SOFTWARE\<company>\<product>\Plugin vs DataFeed", where the bar reads them. Rows of others stay.
void associate_data_feed();

}  // namespace host

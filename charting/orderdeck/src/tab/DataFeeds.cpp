#include "charting/orderdeck/src/tab/DataFeeds.h"

#include "TradingCenter.h"

#include "unicomp/ProfileVsDataFeedAssociation/interface/ProfileVsDataFeedAssociation.h"

namespace OV_OrderDeck {

CString data_feed_of_plugin(const CString& plugin) {
    // Reading it writes the merged table back, so it is read once, when the first tab needs it.
    static const Unicomp::CProfileDataFeedAssociation<ITC_TradingProfile> association;
    return platform::text_of(association.DetectDataFeedByPluginName(plugin.c_str()));
}

}  // namespace OV_OrderDeck

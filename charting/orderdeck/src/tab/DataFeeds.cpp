#include "charting/orderdeck/src/tab/DataFeeds.h"

#include "TradingCenter.h"

#include "unicomp/ProfileVsDataFeedAssociation/interface/ProfileVsDataFeedAssociation.h"

namespace OV_OrderDeck {

CString data_feed_of_plugin(const CString& plugin) {
    // Reading it writes the merged table back, so it is read once, when the first tab needs it.
    static const auto association = Unicomp::association_if_rooted<ITC_TradingProfile>();
    return association ? platform::text_of(association->DetectDataFeedByPluginName(plugin.c_str()))
                       : CString();
}

}  // namespace OV_OrderDeck

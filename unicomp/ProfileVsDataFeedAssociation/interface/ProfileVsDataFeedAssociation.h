// Which data feed serves the symbols of a broker's plug-in.
#pragma once

#include <map>
#include <memory>

#include "platform/text.h"

namespace Unicomp {

namespace details {

// The table: the known plug-ins, then what the user's registry says, which wins. The registry key is
// context(); each of its values is a row, the value's name the plug-in and its text the data feed. After the
// construction the key holds the whole table, so that the user finds every row there to change.
//
// Registry failures are asserted and stop nothing. Throws _com_error: E_FAIL when the settings have no root,
// E_OUTOFMEMORY. What is const may be called on any thread at once.
class ProfileVsDataFeedAssociations {
public:
    ProfileVsDataFeedAssociations();

    // The key's path below HKEY_CURRENT_USER.
    _bstr_t context() const;

    // Takes the registry's rows into the table. Without the key nothing changes.
    void deserialize();

    // Writes every row to the registry.
    void serialize() const;

    // The data feed of a plug-in; empty when the plug-in is unknown.
    _bstr_t DetectDataFeedByPluginName(const _bstr_t& plugin) const;

    // Whether a plug-in of exactly this name is in the table.
    bool HasPluginName(const _bstr_t& plugin) const;

private:
    std::map<_bstr_t, _bstr_t> m_feeds;
};

// Called while an exception of the construction is handled: goes on with it unless it says that the settings
// have no root, which is reported once in a process.
void accept_missing_root();

}  // namespace details

// T is what the names belong to; it changes nothing.
template <class T>
class CProfileDataFeedAssociation : public details::ProfileVsDataFeedAssociations {};

// The association, or null in a program without a settings root, where no plug-in has a feed: that program's
// orders go out all the same. Throws _com_error with E_OUTOFMEMORY.
template <class T>
std::unique_ptr<const CProfileDataFeedAssociation<T>> association_if_rooted() {
    try {
        return std::make_unique<const CProfileDataFeedAssociation<T>>();
    } catch (const _com_error&) {
        details::accept_missing_root();
        return {};
    }
}

}  // namespace Unicomp

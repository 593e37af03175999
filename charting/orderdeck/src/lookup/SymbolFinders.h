// What is asked of each row of a symbol table. A finder is called with the table on the row and whether it
// is the second table, and says whether the walk is to stop. It carries what it has found over from one
// table to the next. What it refers to must outlive it. Thread of the table; throws what the readers throw.
#pragma once

#include "charting/orderdeck/src/lookup/FillSymbolInfo.h"

namespace OV_OrderDeck {

// The one symbol of a feed that has a name. Feeds are told apart by case, names are not. The record holds
// the first match; the second stops the walk, as the name is then not unique.
class unique_by_name_finder {
public:
    unique_by_name_finder(const wchar_t* name, const wchar_t* feed, OD_SSymbolInfo& info)
        : m_name(name), m_feed(feed), m_info(info) {}

    bool operator()(IovTable& table, bool second);
    int count() const { return m_count; }

private:
    const wchar_t* m_name;
    const wchar_t* m_feed;
    OD_SSymbolInfo& m_info;
    int m_count = 0;
};

// The one symbol that a request describes, all without regard to case.
class unique_by_req_finder {
public:
    unique_by_req_finder(const OD_SSymbolReq& req, OD_SSymbolInfo& info) : m_req(req), m_info(info) {}

    bool operator()(IovTable& table, bool second);
    int count() const { return m_count; }

private:
    bool _matches(IovTable& table, bool second) const;

    const OD_SSymbolReq& m_req;
    OD_SSymbolInfo& m_info;
    int m_count = 0;
};

// The symbol of an id, in one feed or, with feed 0, in whichever comes first.
class by_id_finder {
public:
    by_id_finder(LONG id, LONG feed_id, OD_SSymbolInfo& info) : m_id(id), m_feed_id(feed_id), m_info(info) {}

    bool operator()(IovTable& table, bool second);
    bool found() const { return m_found; }

private:
    LONG m_id;
    LONG m_feed_id;
    OD_SSymbolInfo& m_info;
    bool m_found = false;
};

}  // namespace OV_OrderDeck

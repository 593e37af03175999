#pragma once

#include "platform/com.h"
#include "platform/text.h"

// Pieces of what the user reads of a press that sent nothing. Pure functions of the string table.
namespace OV_OrderDeck {

// "2026/11/22"; the text of nothing for a day outside the calendar.
CString text_of_day(LONG day);
// Stands for an item that was not on the screen.
CString text_of_nothing_shown();

}  // namespace OV_OrderDeck

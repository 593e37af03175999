// Ids of the symbol page's dialog and controls.
#pragma once

#define IDD_SYMBOLS 300
#define IDC_SYMBOL_TEXT 301
#define IDC_SYMBOL_FEED 302
#define IDC_SYMBOL_LIST 303
#define IDC_SYMBOL_COUNT 304
#define IDC_SYMBOL_TEXT_LABEL 305
#define IDC_SYMBOL_FEED_LABEL 306

// Ids of the sheet's dialog.
#pragma once

#define IDD_SHEET 400

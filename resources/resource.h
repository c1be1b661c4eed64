// Ids of the program's resources. A control's id means something only within its dialog; several dialogs use the
// same numbers.
#pragma once

#define IDR_MAINFRAME 128

// General Settings
#define IDD_GENERAL_SETTINGS 130
#define IDC_CERTIFICATION_MODE 1006
#define IDC_LOG_VERBOSITY_LABEL 1054
#define IDC_LOG_VERBOSITY 1053
#define IDC_DISPLAY_UPDATE_TIME_LABEL 1126
#define IDC_DISPLAY_UPDATE_TIME 1127
#define IDC_DISPLAY_UPDATE_TIME_UNIT 1128

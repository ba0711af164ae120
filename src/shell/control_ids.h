// Numbers of controls, menu commands, dialogs and resources; also included by the resource script.
#pragma once

#define kMainViewId 100
#define kLabel1Id 101 // to 104: Label1 to Label4
#define kLabel5Id 110 // to 125: the 16 swatches
#define kReadoutId 126
#define kReadoutSwatchId 127
#define kImage1Id 130 // Play; 131 is Image2, Stop
#define kHScroll1Id 132

// Command number of row 0 of kMenuRows; row n has kFirstMenuCommand + n.
#define kFirstMenuCommand 1000

// Command number of item 0 of the submenu that row 0 would be; item m of row n has that + n * kMaxChoices + m.
#define kFirstChoiceCommand 2000
#define kMaxChoices 32

#define kProgramIcon 1 // the lowest number: the icon that the desktop shows
#define kThemedControlsManifest 2
#define kPreferencesDialog 200
#define kPreferencesMenu 201
#define kSavePreferencesId 202
#define kClosePreferencesId 203
#define kCheckAllId 204
#define kUncheckAllId 205
#define kDefaultId 206
#define kGeneralPreferenceId 210 // plus the row of kGeneralPreferences
#define kAssociationId 220       // plus the row of kAssociations

#define kTextDialog 300
#define kTextId 301
#define kCopyTextId 302

// Numbers of the main window's controls and menu commands, and of the dialogs; resource scripts read them too.
#pragma once

#define kMainViewId 100
#define kLabel1Id 101 // Label2 to Label4 follow
#define kLabel5Id 110 // sixteen swatches
#define kReadoutId 126
#define kReadoutSwatchId 127
#define kImage1Id 130 // Play; Image2, Stop, follows
#define kHScroll1Id 132

// Command number of the first row of kMenuRows; the others follow in order.
#define kFirstMenuCommand 1000

#define kThemedControlsManifest 2
#define kPreferencesDialog 200
#define kPreferencesMenu 201
#define kSavePreferencesId 202
#define kClosePreferencesId 203
#define kCheckAllId 204
#define kUncheckAllId 205
#define kDefaultId 206
#define kGeneralPreferenceId 210 // the rows of kGeneralPreferences in order
#define kAssociationId 220       // the 25 extensions in order

#define kTextDialog 300
#define kTextId 301
#define kCopyTextId 302

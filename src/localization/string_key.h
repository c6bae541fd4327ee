#pragma once

#include <cstddef>

namespace rondora {

/// The texts that the program shows. "%@" in a text is a placeholder for an argument.
enum class StringKey {
  settings,
  quit,

  onboardingTitle,
  onboardingGreeting,
  onboardingWhatItIs,
  onboardingHowToOpen,  // %@: the hotkey
  onboardingHowToChoose,
  onboardingConfigurationFile,  // %@: its path
  onboardingGetStarted,
  /// Steps for a user without a hotkey.
  onboardingOpenWithButton,
  onboardingPointAndClick,
  onboardingOpenRing,
  onboardingChooseHotkey,
  /// Screen-reader names of the marks before the steps.
  onboardingStepDone,
  onboardingStepToDo,
  onboardingDoneHeadline,
  onboardingDoneText,

  settingsTitle,
  settingsConfigurationFile,
  settingsOpenFolder,
  settingsLanguage,
  settingsHotkeyRefused,  // %@: the menu's name
  settingsNoTray,
  settingsHotkeysNote,
  /// On the button beside the path of the configuration file.
  settingsCopy,
  settingsClose,
  hotkeyRecord,
  hotkeyCancel,
  hotkeyPressKeys,
  hotkeyRecordName,     // %@: the menu’s name
  hotkeyRemoveName,     // %@: the menu’s name
  hotkeyNeedsModifier,  // %@: the key
  hotkeyOpensMenu,      // %@ twice: the hotkey, and the name of the menu
  hotkeyKeyUnusable,
  hotkeyKeyboardBusy,
  settingsStartAtLogin,
  startAtLoginFailed,  // %@: the system’s message
  /// Screen-reader names of the marks before the findings.
  sessionWorks,
  sessionFails,

  sessionIntroduction,
  settingsHaptics,
  permissionsHeading,
  permissionAccessibility,
  permissionAccessibilityUse,
  permissionInputMonitoring,
  permissionInputMonitoringUse,
  permissionGranted,  // %@: a permission
  permissionMissing,  // %@: a permission
  permissionAllow,
  permissionTrackpadUnneeded,
  failuresHeading,
  failuresNone,
  aboutHeading,
  aboutVersion,  // %@: "1.2.3"
  aboutLicence,

  sessionX11,
  sessionWayland,
  sessionWaylandRemedy,
  sessionHotkeysWork,
  sessionHotkeyRefusedRemedy,  // %@: the hotkey
  sessionHotkeyUnusable,       // %@: the menu's name
  sessionHotkeyUnusableRemedy,
  sessionHotkeyOptionRemedy,  // %@: an option of the keyboard
  sessionHotkeyShared,        // %@: a menu’s name; %@: that of the one that opens
  sessionTray,
  sessionNoTrayRemedy,
  sessionMenuBar,
  sessionNoMenuBarRoom,
  sessionNoMenuBarRoomRemedy,
  sessionKeystrokes,
  sessionNoKeystrokes,
  sessionNoKeystrokesRemedy,
  sessionTrackpad,
  sessionTrackpadUnreadable,
  sessionTrackpadUnreadableRemedy,
  sessionUnreadableMenus,  // %@: the applications
  sessionUnreadableMenusRemedy,
  findingsNotShown,  // %@: their number

  documentUnreadable,  // %@: what is wrong and where
  documentKept,        // %@: its path
  documentKeptItself,  // %@: its path
  documentNotKept,     // %@: the system’s message; %@: a path
  documentRestoreHint,
  documentNothingOpensIt,
  findingOpenFile,
  findingRestore,
  findingDismiss,

  documentEdited,
  documentImportHint,
  findingImport,

  documentNotSaved,  // %@: the system’s message
  documentNotSavedRemedy,
  findingSaveAgain,
  sitePicturesNotSaved,  // %@: the system’s message
  sitePicturesNotSavedRemedy,

  backupTitle,
  backupExport,
  backupExportNote,
  backupExportButton,
  /// %@: the file’s path
  backupExported,
  /// %@: the system’s message
  backupExportFailed,
  backupImportNote,
  backupChooseFile,
  /// Kinds of files in a file chooser.
  backupFiles,
  backupAllFiles,
  /// %@: a file’s name
  backupPreview,
  /// %@: a file’s name
  backupNoChanges,
  backupApply,
  backupApplied,
  backupCopies,
  backupCopiesNote,
  backupNoCopies,
  /// Why a copy was kept.
  backupCopyUnreadable,
  backupCopyEdited,
  /// %@ twice: the numbers
  backupCopyHolds,
  /// %@: what is wrong and where
  backupCopyProblem,
  backupDelete,
  backupDeleteQuestion,
  backupDeleteFailed,
  backupDeleted,
  backupNothingOpensFolder,
  /// What an import would change; %@ twice: a menu’s name and its number of items.
  changeMenuAdded,
  changeMenuRemoved,
  changeMenu,
  changeMenuOrder,
  /// The next are changes of one menu; %@ twice: before and afterwards.
  changeName,
  changeHotkey,
  changeFingers,
  changeSwitchedOn,
  changeSwitchedOff,
  changeItemAdded,
  changeItemRemoved,
  changeItemRenamed,
  changeItem,
  changeItemOrder,
  changeExclusions,
  changeDefaultCommands,
  changeAppearance,
  /// %@: an application
  changeCommandsAdded,
  changeCommandsRemoved,
  changeCommands,
  changeLanguage,
  changeHapticOn,
  changeHapticOff,
  /// %@: their number
  changesNotShown,

  /// Titles of items that stand for a kind of application while none is installed.
  kindWebBrowser,
  kindTerminal,
  kindFileManager,
  kindSystemSettings,
  kindMusicPlayer,
  kindTextEditor,

  /// The colours of the palette, and other ways to choose one.
  colorBlue,
  colorGreen,
  colorLightBlue,
  colorGray,
  colorPink,
  colorYellow,
  colorPurple,
  colorOrange,
  colorCode,
  colorOther,
  colorCodeInvalid,  // %@: an example

  /// Beneath the title of a menu command that the application does not allow, or does not have.
  commandOffNow,

  /// The appearance page: its groups of fields, the fields, and what it does with them.
  lookRing,
  lookIcons,
  lookGlassGroup,
  lookAnimation,
  lookMiddle,
  lookKeys,
  lookRadius,
  lookHubRadius,
  lookScale,
  lookRotation,
  lookIconSize,
  lookIconDistance,
  lookGlass,
  lookGlassRegular,
  lookGlassClear,
  lookTint,
  lookDuration,
  lookPaws,
  lookCatSize,
  lookAppIconSize,
  lookPawSize,
  lookPawInset,
  lookKeySize,
  lookKeyInsetLeft,
  lookKeyInsetRight,
  lookKeyOpacity,
  lookKeyColor,
  lookNeedsPaws,
  lookMenu,
  lookResetName,  // %@: the field
  lookResetAll,
  lookCopyToAll,
  lookCopied,  // %@ twice: the menu’s name, and how many menus changed
  lookAllAlike,
  commandGone,
  /// Titles of the commands that every application has.
  commandHideApp,
  commandMinimizeWindow,
  commandEnterFullScreen,
  commandLeaveFullScreen,
  commandTileLeft,
  commandTileRight,
  commandTileTop,
  commandTileBottom,
  commandFillScreen,
  commandCenterWindow,
  commandCloseWindow,
  commandQuitApp,

  /// The page of the application-commands menu.
  commandsSet,
  commandsDefaultSet,
  commandsAddSet,
  commandsRemoveSet,  // %@: the application
  commandsDefaultNote,
  commandsEmptyNote,
  commandsEveryApp,
  commandsList,
  commandsAdd,
  commandsFromMenus,
  commandsRemove,
  commandsSuggest,
  commandsSuggestNote,
  commandsReset,
  /// The list of an application’s menu commands.
  catalogTitle,  // %@: the application
  catalogSearch,
  catalogReading,
  catalogNotRunning,
  catalogUnreadable,
  catalogIncomplete,
  catalogReadAgain,
  catalogNoMatch,
  catalogAdded,
  catalogAdd,

  actionFailed,        // %@ twice: the item’s title, and one of the reasons below
  actionNotInstalled,  // %@: the application
  actionNotInstalledRemedy,
  actionNoDefault,  // %@: a content type, such as audio/mpeg
  actionNoDefaultRemedy,
  actionCannotStart,  // %@: the application
  actionCannotStartRemedy,
  actionEndedAtOnce,  // %@: the application
  actionEndedAtOnceRemedy,
  actionNotAnAddress,  // %@: the text
  actionNotAnAddressRemedy,
  actionNoHandler,  // %@: the address
  actionNoHandlerRemedy,
  actionNoSystemAction,
  actionNoSystemActionRemedy,
  actionNoSuchKey,
  actionNoSuchKeyRemedy,
  actionTargetLost,
  actionTargetLostRemedy,
  /// Reasons why a command of an application did nothing; %@: the application.
  commandNotFound,
  commandNotFoundRemedy,
  commandNoAnswer,
  commandNoAnswerRemedy,
  commandDisabled,
  commandDisabledRemedy,
  commandRefused,
  commandRefusedRemedy,
  commandNoWindow,
  commandNoWindowRemedy,
  commandWindowKept,
  commandWindowKeptRemedy,

  menusSearch,
  menusHeading,
  menusAdd,
  menusNothingFound,
  settingsDuplicate,
  settingsDelete,
  settingsMoveUp,
  settingsMoveDown,
  settingsUndo,
  settingsRedo,
  settingsPaste,
  settingsDeleted,  // %@: notice with an Undo button; name of the deleted menu or item
  pageGeneral,
  pageAppearance,
  pageBackup,
  pageSession,
  menuCopyName,  // %@: name of a duplicated menu; the menu's name
  menuName,
  menuHotkey,
  menuFingers,
  fingersNone,
  fingersCount,  // %@: number
  fingersMoved,  // %@: notice; first %@ number of fingers, second: menu's name
  menuNoTrackpad,
  menuSwitch,
  menuRunningApps,
  menuAppCommands,
  menuColor,
  menuItems,
  itemAdd,
  itemUntitled,
  previewName,
  previewHelp,
  previewTurnLeft,
  previewTurnRight,
  menuNoItems,
  itemChooseOne,
  itemTitle,
  itemAction,
  itemIcon,
  itemIconChange,
  itemColor,
  itemIconColor,
  iconColorAutomatic,
  itemLabel,
  labelAutomatic,  // %@: the key that it has without a choice
  labelNone,
  labelInvalid,
  labelClash,  // %@: title of another item
  actionNone,
  actionApplication,
  actionAddress,
  actionKeystroke,
  actionSnippet,
  actionSystem,
  actionChooseApplication,
  applicationNotInstalled,
  /// The window that lists applications to choose from.
  applicationsTitle,
  applicationsSearch,
  applicationsChoose,
  applicationsRunning,     // mark in the list
  applicationsIdentifier,  // %@: what the user typed
  /// The applications that the menu of running applications leaves out.
  excludedHeading,
  excludedNote,
  excludedNone,
  excludedAdd,
  excludedRemove,
  addressField,
  addressEmpty,
  addressInvalid,
  keystrokeField,
  keystrokeNone,
  snippetField,
  snippetEmpty,
  systemField,
  systemOverview,
  systemScreenSaver,
  systemForeign,
  itemSystemNothing,
  itemTry,
  itemTryWorked,
  itemTryNothing,
  iconPickerTitle,
  iconPickerSearch,
  iconPickerRecent,
  iconPickerSymbols,
  iconPickerFound,
  iconPickerNothingFound,
  /// Icons from elsewhere. The first two are those of what the item opens.
  iconPickerOwnApplication,
  iconPickerSite,
  iconPickerApplication,
  iconPickerImageFile,
  iconPickerNone,

  /// In the hub of a menu without items.
  ringMenuEmpty,
  /// What a screen reader says of the open ring.
  spokenItem,     // %@ three times: the title, its position, the number of items
  spokenItemKey,  // %@ twice: the text above, and the item's key
  /// Names the paste shortcut as "Command+V" in every language.
  snippetHint,
  importRefused,
};

inline constexpr std::size_t kStringKeyCount = static_cast<std::size_t>(StringKey::importRefused) + 1;

}  // namespace rondora

#pragma once

#include <string_view>

// Names that platform/accessibility.h uses, as the macOS interface has them.

namespace rondora::ax {

// Attributes of an application.
inline constexpr std::string_view kFocusedWindow = "AXFocusedWindow";
inline constexpr std::string_view kMainWindow = "AXMainWindow";
inline constexpr std::string_view kMenuBar = "AXMenuBar";
inline constexpr std::string_view kWindows = "AXWindows";

// Attributes of a window.
inline constexpr std::string_view kCloseButton = "AXCloseButton";
inline constexpr std::string_view kFullScreen = "AXFullScreen";
inline constexpr std::string_view kMain = "AXMain";
inline constexpr std::string_view kMinimized = "AXMinimized";
inline constexpr std::string_view kPosition = "AXPosition";
inline constexpr std::string_view kRole = "AXRole";
inline constexpr std::string_view kSize = "AXSize";
inline constexpr std::string_view kSubrole = "AXSubrole";

// Attributes of a menu and its items.
inline constexpr std::string_view kChildren = "AXChildren";
inline constexpr std::string_view kEnabled = "AXEnabled";
inline constexpr std::string_view kMenuItemCmdChar = "AXMenuItemCmdChar";
inline constexpr std::string_view kMenuItemCmdModifiers = "AXMenuItemCmdModifiers";
inline constexpr std::string_view kTitle = "AXTitle";

// Actions.
inline constexpr std::string_view kPress = "AXPress";
inline constexpr std::string_view kRaise = "AXRaise";

// Values of the role and the subrole.
inline constexpr std::string_view kDialog = "AXDialog";
inline constexpr std::string_view kStandardWindow = "AXStandardWindow";
inline constexpr std::string_view kUnknown = "AXUnknown";
inline constexpr std::string_view kWindow = "AXWindow";

}  // namespace rondora::ax

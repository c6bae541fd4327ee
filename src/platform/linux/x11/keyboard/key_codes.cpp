#include "platform/linux/x11/keyboard/key_codes.h"

#include <array>

namespace rondora::x11 {
namespace {

struct KeyPosition {
  std::uint8_t virtualKeyCode;
  std::uint8_t evdevCode;
};

// Keys at the same place of the keyboard. Virtual key codes: HIToolbox/Events.h (kVK_*); evdev codes:
// linux/input-event-codes.h (KEY_*). Checked on a us/pc105 keyboard, except for the international and the F13 to F20
// keys.
constexpr auto kSamePlace = std::to_array<KeyPosition>(
    {{0, 30},    {1, 31},    {2, 32},    {3, 33},   {4, 35},    {5, 34},    {6, 44},    {7, 45},    {8, 46},
     {9, 47},    {10, 86},   {11, 48},   {12, 16},  {13, 17},   {14, 18},   {15, 19},   {16, 21},   {17, 20},
     {18, 2},    {19, 3},    {20, 4},    {21, 5},   {22, 7},    {23, 6},    {24, 13},   {25, 10},   {26, 8},
     {27, 12},   {28, 9},    {29, 11},   {30, 27},  {31, 24},   {32, 22},   {33, 26},   {34, 23},   {35, 25},
     {36, 28},   {37, 38},   {38, 36},   {39, 40},  {40, 37},   {41, 39},   {42, 43},   {43, 51},   {44, 53},
     {45, 49},   {46, 50},   {47, 52},   {48, 15},  {49, 57},   {50, 41},   {51, 14},   {53, 1},    {54, 126},
     {55, 125},  {56, 42},   {57, 58},   {58, 56},  {59, 29},   {60, 54},   {61, 100},  {62, 97},   {64, 187},
     {65, 83},   {67, 55},   {69, 78},   {71, 69},  {72, 115},  {73, 114},  {74, 113},  {75, 98},   {76, 96},
     {78, 74},   {79, 188},  {80, 189},  {81, 117}, {82, 82},   {83, 79},   {84, 80},   {85, 81},   {86, 75},
     {87, 76},   {88, 77},   {89, 71},   {90, 190}, {91, 72},   {92, 73},   {93, 124},  {94, 89},   {95, 121},
     {96, 63},   {97, 64},   {98, 65},   {99, 61},  {100, 66},  {101, 67},  {102, 123}, {103, 87},  {104, 122},
     {105, 183}, {106, 186}, {107, 184}, {109, 68}, {111, 88},  {113, 185}, {114, 110}, {115, 102}, {116, 104},
     {117, 111}, {118, 62},  {119, 107}, {120, 60}, {121, 109}, {122, 59},  {123, 105}, {124, 106}, {125, 108},
     {126, 103}});

// The Fn key itself never reaches X (KEY_FN is 464, an X key code is at most 255); the Menu key stands in for it.
constexpr std::uint8_t kMenuEvdevCode = 127;
constexpr std::uint32_t kFnVirtualKeyCode = 63;
constexpr std::uint32_t kContextMenuVirtualKeyCode = 110;

constexpr int kEvdevToX = 8;
constexpr std::uint8_t kNone = 0xFF;

constexpr xcb_keycode_t toX(std::uint8_t evdevCode) { return static_cast<xcb_keycode_t>(evdevCode + kEvdevToX); }

constexpr std::array<std::uint8_t, 256> makeVirtualKeyCodes() {
  std::array<std::uint8_t, 256> table{};
  table.fill(kNone);
  for (const KeyPosition& key : kSamePlace) table[toX(key.evdevCode)] = key.virtualKeyCode;
  table[toX(kMenuEvdevCode)] = kFnVirtualKeyCode;
  return table;
}

constexpr std::array<xcb_keycode_t, 128> makeXKeyCodes() {
  std::array<xcb_keycode_t, 128> table{};
  for (const KeyPosition& key : kSamePlace) table[key.virtualKeyCode] = toX(key.evdevCode);
  table[kFnVirtualKeyCode] = toX(kMenuEvdevCode);
  return table;
}

constexpr auto kVirtualKeyCodes = makeVirtualKeyCodes();
constexpr auto kXKeyCodes = makeXKeyCodes();

}  // namespace

std::optional<xcb_keycode_t> xKeyCode(std::uint32_t virtualKeyCode) {
  if (virtualKeyCode >= kXKeyCodes.size() || kXKeyCodes[virtualKeyCode] == 0) return std::nullopt;
  return kXKeyCodes[virtualKeyCode];
}

std::optional<xcb_keycode_t> xKeyCodeForSending(std::uint32_t virtualKeyCode) {
  return virtualKeyCode == kContextMenuVirtualKeyCode ? toX(kMenuEvdevCode) : xKeyCode(virtualKeyCode);
}

std::uint16_t virtualKeyCode(xcb_keycode_t xKeyCode) {
  const std::uint8_t code = kVirtualKeyCodes[xKeyCode];
  return code == kNone ? KeyEvent::kNoKeyCode : code;
}

}  // namespace rondora::x11

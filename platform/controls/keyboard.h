#pragma once

namespace vorn {

/// Virtual key codes, by the framework's names and numbers. Other keys aren't told to controls.
inline constexpr unsigned VK_RETURN = 0x0D;
inline constexpr unsigned VK_ESCAPE = 0x1B;
inline constexpr unsigned VK_SPACE = 0x20;
inline constexpr unsigned VK_PRIOR = 0x21;
inline constexpr unsigned VK_NEXT = 0x22;
inline constexpr unsigned VK_END = 0x23;
inline constexpr unsigned VK_HOME = 0x24;
inline constexpr unsigned VK_LEFT = 0x25;
inline constexpr unsigned VK_UP = 0x26;
inline constexpr unsigned VK_RIGHT = 0x27;
inline constexpr unsigned VK_DOWN = 0x28;

} // namespace vorn

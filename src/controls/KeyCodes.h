/// @file
/// The codes of keys that are no characters, as text boxes and lists report them.
#pragma once

inline constexpr int BackspaceKey = 8;
inline constexpr int EnterKey = 13;
inline constexpr int PasteKey = 22; ///< Ctrl+V

/// @file
/// The codes of keys that are no characters, as text boxes and lists report them.
#pragma once

inline constexpr int BackspaceKey = 8;
inline constexpr int EnterKey = 13;
inline constexpr int PasteKey = 22; ///< Ctrl+V
inline constexpr int CutKey = 24;   ///< Ctrl+X
inline constexpr int RedoKey = 25;  ///< Ctrl+Y
inline constexpr int UndoKey = 26;  ///< Ctrl+Z

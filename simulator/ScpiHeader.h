/// @file
/// Recognises SCPI headers by their mixed-case mnemonics: the capitals are the short form, the whole word is the long
/// one.
#pragma once

#include <string_view>

/// True when text is the header pattern, every node in its long or its short form, in any case, with or without a
/// leading colon. A form between the two is none (SCPI-99, Volume 1, 6.2.1).
/// @param pattern nodes in mixed case with a leading colon, for instance ":MEASure:VOLTage:DC?"; the question mark of a
///                query stands at the end and is required in text
/// @param text the header without surrounding blanks
bool MatchesScpiHeader(std::string_view pattern, std::string_view text);

/// True when the two are equal, letters in any case; ASCII only, whatever the locale.
bool EqualInAnyCase(std::string_view left, std::string_view right);

/// @file
/// The texts of VISA, without any device: formats of formatted output, formats of formatted input, and expressions that
/// find resources. Only what is named here is understood; anything else is refused, never guessed.
#pragma once

#include <cstdarg>
#include <optional>
#include <string>
#include <string_view>

/// Expands a format of viVPrintf: plain characters, "%%", and the conversions d i u x X o c (int), s (text) and
/// f e E g G (double) with flags "-+ 0#", width and precision as digits. Decimal points are points in every locale.
/// @return nothing when the format holds another conversion, '*', a size modifier or a single percent sign at its end
std::optional<std::string> ExpandFormat(const char *format, std::va_list arguments);

/// A "%t" of viVScanf.
struct ReadFormat {
    std::optional<unsigned> Width; ///< "%<width>t": at most this many characters, the closing NUL on top
    bool SizeArgument = false;     ///< "%#t": an address of a ViUInt32 stands before the buffer
};

/// Takes a format of viVScanf apart. Understood are "%t", "%<width>t" with a width from 1, and "%#t".
std::optional<ReadFormat> ParseReadFormat(std::string_view format);

/// How a resource name fits an expression of viFindRsrc.
enum class ExpressionMatch {
    Invalid, ///< the expression is none, or uses '[', ']', '(', ')', '|', '{', '}' or '^', which are not understood
    No,
    Yes,
};

/// Matches a whole resource name, letters in any case: '?' is any one character, '*' repeats what stands before it any
/// number of times, zero included, '+' at least once, a backslash takes the next character as it stands.
ExpressionMatch MatchResource(std::string_view expression, std::string_view name);

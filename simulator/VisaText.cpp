#include "simulator/VisaText.h"

#include <charconv>
#include <clocale>
#include <cstddef>
#include <cstdio>
#include <vector>

namespace {

constexpr std::string_view IntegerConversions = "diuxXoc";
constexpr std::string_view RealConversions = "feEgG";

/// One conversion cut out of a format, for instance "%-8.3f".
struct Conversion {
    std::string Text;
    char Letter = 0;
};

/// Cuts the conversion that begins at position, which holds a percent sign, and moves position behind it.
std::optional<Conversion> CutConversion(std::string_view format, std::size_t &position)
{
    const std::size_t letter = format.find_first_not_of("-+ 0#123456789.", position + 1);
    if (letter == std::string_view::npos)
        return std::nullopt;
    Conversion conversion{std::string(format.substr(position, letter - position + 1)), format[letter]};
    position = letter + 1;
    return conversion;
}

template <typename Value>
std::optional<std::string> PrintOne(const std::string &format, Value value)
{
    const int length = std::snprintf(nullptr, 0, format.c_str(), value);
    if (length < 0)
        return std::nullopt;
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    std::snprintf(text.data(), text.size(), format.c_str(), value);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

/// An instrument reads points, whatever locale the program around this library has set.
void UsePoint(std::string &number)
{
    const std::string_view decimalPoint = std::localeconv()->decimal_point;
    const std::size_t found = number.find(decimalPoint);
    if (found != std::string::npos)
        number.replace(found, decimalPoint.size(), ".");
}

/// A list of its own type, since an argument list as a parameter turns into a pointer on some machines and a copy on
/// others.
struct ArgumentList {
    std::va_list Arguments;
};

std::optional<std::string> Convert(const Conversion &conversion, ArgumentList &list)
{
    if (conversion.Text == "%%")
        return "%";
    if (IntegerConversions.find(conversion.Letter) != std::string_view::npos)
        return PrintOne(conversion.Text, va_arg(list.Arguments, int));
    if (conversion.Letter == 's')
        return PrintOne(conversion.Text, va_arg(list.Arguments, const char *));
    if (RealConversions.find(conversion.Letter) == std::string_view::npos)
        return std::nullopt;
    std::optional<std::string> number = PrintOne(conversion.Text, va_arg(list.Arguments, double));
    if (number)
        UsePoint(*number);
    return number;
}

std::optional<std::string> Expand(std::string_view format, ArgumentList &list)
{
    std::string text;
    std::size_t position = 0;
    while (position < format.size()) {
        if (format[position] != '%') {
            text += format[position++];
            continue;
        }
        const std::optional<Conversion> conversion = CutConversion(format, position);
        const std::optional<std::string> piece = conversion ? Convert(*conversion, list) : std::nullopt;
        if (!piece)
            return std::nullopt;
        text += *piece;
    }
    return text;
}

/// One character of an expression and how often it may stand.
struct ExpressionItem {
    char Letter = 0;
    bool Any = false;
    std::size_t Least = 1;
    bool Repeats = false;
};

char UpperCase(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

/// Nothing when the expression is empty or holds what is not understood.
std::optional<std::vector<ExpressionItem>> ParseExpression(std::string_view expression)
{
    std::vector<ExpressionItem> items;
    for (std::size_t position = 0; position < expression.size(); ++position) {
        const char letter = expression[position];
        if (letter == '*' || letter == '+') {
            if (items.empty() || items.back().Repeats)
                return std::nullopt;
            items.back().Repeats = true;
            items.back().Least = letter == '+' ? 1 : 0;
        } else if (letter == '\\') {
            if (++position == expression.size())
                return std::nullopt;
            items.push_back({UpperCase(expression[position])});
        } else if (std::string_view("[](){}|^").find(letter) != std::string_view::npos) {
            return std::nullopt;
        } else {
            items.push_back({UpperCase(letter), letter == '?'});
        }
    }
    if (items.empty())
        return std::nullopt;
    return items;
}

bool Fits(const ExpressionItem &item, char letter)
{
    return item.Any || item.Letter == UpperCase(letter);
}

/// Which lengths of the name the items so far can cover, carried on by one more item.
std::vector<bool> Carry(const std::vector<bool> &reached, const ExpressionItem &item, std::string_view name)
{
    std::vector<bool> next(reached.size(), false);
    for (std::size_t start = 0; start < reached.size(); ++start) {
        if (!reached[start])
            continue;
        std::size_t taken = 0;
        if (item.Least == 0)
            next[start] = true;
        while (start + taken < name.size() && Fits(item, name[start + taken]) && (taken == 0 || item.Repeats)) {
            ++taken;
            next[start + taken] = true;
        }
    }
    return next;
}

} // namespace

std::optional<std::string> ExpandFormat(const char *format, std::va_list arguments)
{
    ArgumentList list;
    va_copy(list.Arguments, arguments);
    std::optional<std::string> text = Expand(format, list);
    va_end(list.Arguments);
    return text;
}

std::optional<ReadFormat> ParseReadFormat(std::string_view format)
{
    ReadFormat parsed;
    if (format.size() < 2 || !format.starts_with('%') || !format.ends_with('t'))
        return std::nullopt;
    const std::string_view modifier = format.substr(1, format.size() - 2);
    if (modifier.empty())
        return parsed;
    if (modifier == "#") {
        parsed.SizeArgument = true;
        return parsed;
    }
    unsigned width = 0;
    const auto [end, error] = std::from_chars(modifier.data(), modifier.data() + modifier.size(), width);
    if (error != std::errc() || end != modifier.data() + modifier.size() || width == 0)
        return std::nullopt;
    parsed.Width = width;
    return parsed;
}

ExpressionMatch MatchResource(std::string_view expression, std::string_view name)
{
    const std::optional<std::vector<ExpressionItem>> items = ParseExpression(expression);
    if (!items)
        return ExpressionMatch::Invalid;
    std::vector<bool> reached(name.size() + 1, false);
    reached[0] = true;
    for (const ExpressionItem &item : *items)
        reached = Carry(reached, item, name);
    return reached[name.size()] ? ExpressionMatch::Yes : ExpressionMatch::No;
}

#include "simulator/ScpiHeader.h"

#include <algorithm>
#include <string>

namespace {

char UpperCase(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

bool IsLowerCase(char letter)
{
    return letter >= 'a' && letter <= 'z';
}

bool MatchesNode(std::string_view pattern, std::string_view text)
{
    std::string shortForm(pattern);
    std::erase_if(shortForm, IsLowerCase);
    return EqualInAnyCase(text, pattern) || EqualInAnyCase(text, shortForm);
}

/// Cuts the text up to the next colon off the front of rest.
std::string_view TakeNode(std::string_view &rest)
{
    const std::size_t colon = rest.find(':');
    const std::string_view node = rest.substr(0, colon);
    rest.remove_prefix(colon == std::string_view::npos ? rest.size() : colon + 1);
    return node;
}

} // namespace

bool EqualInAnyCase(std::string_view left, std::string_view right)
{
    return std::ranges::equal(left, right, {}, UpperCase, UpperCase);
}

bool MatchesScpiHeader(std::string_view pattern, std::string_view text)
{
    if (text.starts_with(':'))
        text.remove_prefix(1);
    pattern.remove_prefix(1);
    if (std::ranges::count(pattern, ':') != std::ranges::count(text, ':'))
        return false;
    while (!pattern.empty() || !text.empty()) {
        const std::string_view node = TakeNode(pattern);
        if (!MatchesNode(node, TakeNode(text)))
            return false;
    }
    return true;
}

#include "curve/StringFunction.h"

#include "platform/NumberText.h"

QString FormatInputValue(const QString &text)
{
    return FormatNumber(LeadingNumber(text), u"0.0#####");
}

QString FormatOutputValue(const QString &text)
{
    return FormatNumber(LeadingNumber(text), u"0.0#####");
}

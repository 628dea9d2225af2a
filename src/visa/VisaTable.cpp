#include "visa/VisaTable.h"

ViStatus VisaPrintf(const VisaTable &table, ViSession session, const char *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const ViStatus status = table.viVPrintf(session, format, arguments);
    va_end(arguments);
    return status;
}

ViStatus VisaScanf(const VisaTable &table, ViSession session, const char *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const ViStatus status = table.viVScanf(session, format, arguments);
    va_end(arguments);
    return status;
}

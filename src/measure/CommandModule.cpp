#include "measure/CommandModule.h"

#include <array>

namespace {

const QString &FunctionPath(std::int32_t measFunction)
{
    static const std::array<QString, 10> paths{
        QStringLiteral(":VOLTage:DC"), QStringLiteral(":VOLTage:AC"), QStringLiteral(":CURRent:DC"),
        QStringLiteral(":CURRent:AC"), QStringLiteral(":RESIstance"), QStringLiteral(":FRESistance"),
        QStringLiteral(":CONTinuity"), QStringLiteral(":DIODe"),      QStringLiteral(":VOLTage:DC:RATIo"),
        QStringLiteral(":FREQuency"),
    };
    if (measFunction < 0 || measFunction >= static_cast<std::int32_t>(paths.size()))
        return paths.front();
    return paths[measFunction];
}

} // namespace

QString ComposeFunctionCommand(std::int32_t measFunction)
{
    return QStringLiteral(":FUNCtion") + FunctionPath(measFunction);
}

QString ComposeMeasureCommand(std::int32_t measFunction)
{
    return QStringLiteral(":MEASure") + FunctionPath(measFunction) + QLatin1Char('?');
}

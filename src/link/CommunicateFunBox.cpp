#include "link/CommunicateFunBox.h"

#include "link/LinkIndicator.h"
#include "link/LinkState.h"
#include "link/USB_FuncBox.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"
#include "platform/SettingsStore.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"

namespace {

QString Setting(const QString &section, const QString &key, const QString &absent)
{
    return ReadSetting(QStringLiteral("Ostrakon"), section, key, absent);
}

std::uint8_t SettingAsByte(const QString &section, const QString &key, const QString &absent)
{
    const std::int32_t number = RoundToInt32(WholeNumber(Setting(section, key, absent)));
    if (number < 0 || number > 255)
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<std::uint8_t>(number);
}

/// Required: GPIB is an empty operation. No such device is ever opened, and a failure is not reported either.
void GpibSend(const QString &) {}

} // namespace

void InitIO()
{
    LinkUp = false;
    UsbInitOk = false;
    MainForm->TimeOutTimer->start();
    ShowIndicatorOff();
    LoadIOSettings();
}

void LoadIOSettings()
{
    IOType = SettingAsByte(QStringLiteral("IOSetting"), QStringLiteral("IOType"), QStringLiteral("0"));
    PrimaryAddressText = Setting(QStringLiteral("GPIB"), QStringLiteral("PrimaryAddress"), QStringLiteral("1"));
    Rs232Port = Setting(QStringLiteral("RS232"), QStringLiteral("Port"), QStringLiteral("COM1"));
    Rs232BaudRate =
        RoundToInt32(WholeNumber(Setting(QStringLiteral("RS232"), QStringLiteral("BaudRate"), QStringLiteral("9600"))));
    Rs232ParityDataBits = SettingAsByte(QStringLiteral("RS232"), QStringLiteral("ParityDataBits"), QStringLiteral("0"));
    Rs232HandShake = Setting(QStringLiteral("RS232"), QStringLiteral("Hand_Shake"), QStringLiteral("None"));
}

void SendCommand(const QString &text)
{
    switch (IOType) {
    case IOTypeGpib:
        GpibSend(text);
        return;
    case IOTypeRs232:
        return;
    default:
        UsbWrite(text);
    }
}

QString QueryCommand(const QString &text)
{
    // Required: a query over these transports is silent and does not even send the command.
    if (IOType == IOTypeGpib || IOType == IOTypeRs232)
        return {};
    return UsbQuery(text);
}

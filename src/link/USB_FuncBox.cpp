#include "link/USB_FuncBox.h"

#include "controls/Boxes.h"
#include "display/SensorProjFrm.h"
#include "link/DeviceChoiceFrm.h"
#include "link/LinkIndicator.h"
#include "link/LinkState.h"
#include "measure/RunState.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"
#include "shell/ActiveProject.h"
#include "shell/MainModule.h"

#include <QByteArray>

#include <array>
#include <cstdlib>
#include <memory>

const VisaTable *Visa = nullptr;

namespace {

constexpr int FindBufferSize = 1024; // VISA asks for at least 256

/// "%t" reads up to the end of the message and knows no width, so the library writes whatever the instrument sends. The
/// buffer takes far more than any instrument can send within a time-out; pages that nothing is written to cost no
/// memory.
constexpr std::size_t ReadBufferSize = std::size_t{64} * 1024 * 1024;

struct FreeMemory {
    void operator()(char *memory) const { std::free(memory); }
};
using ReadBuffer = std::unique_ptr<char, FreeMemory>;

ReadBuffer NewReadBuffer()
{
    ReadBuffer buffer(static_cast<char *>(std::calloc(ReadBufferSize, 1)));
    if (!buffer)
        throw RuntimeError(ErrorNumber::OutOfMemory);
    return buffer;
}

using FindBuffer = std::array<char, FindBufferSize>;

void KeepFoundName(const FindBuffer &found)
{
    VisaResourceBuffer[0] = QString::fromLocal8Bit(found.data()).left(VisaResourceNameLimit);
}

/// Fills the device list with the instruments of the series; other USB resources are passed over.
void FindInstruments()
{
    ViFindList list = 0;
    ViUInt32 found = 0;
    FindBuffer buffer{};
    Visa->viFindRsrc(VisaDefaultRM, "USB?*INSTR", &list, &found, buffer.data());
    KeepFoundName(buffer);
    DeviceChoiceForm->CbDeviceList->ClearList();
    const int matches = RoundToInt16(found);
    for (int i = 1; i <= matches; ++i) {
        if (VisaResourceBuffer[0].contains(QLatin1StringView("KV"), Qt::CaseSensitive)) {
            VisaResourceName = VisaResourceBuffer[0];
            DeviceChoiceForm->CbDeviceList->AddItem(VisaResourceName);
        }
        if (i < matches) {
            Visa->viFindNext(list, buffer.data());
            KeepFoundName(buffer);
        }
    }
}

void OpenInstrument()
{
    // A failed opening must not leave the session of an earlier link in use.
    ViSession session = VI_NULL;
    Visa->viOpen(VisaDefaultRM, VisaResourceName.toLocal8Bit().constData(), 0, 0, &session);
    VisaSession = session;
}

void ReportFailedWrite()
{
    if (Measuring) {
        ExclamationBox(
            WordingUnlessEnglish(QStringLiteral("Unable to connect to USB device, Measurement has been stopped! "),
                                 QStringLiteral("通信中断，测量已经结束! ")));
        FormOfSlot(ActiveSlot()).EndLumoBtn_MouseClick();
        Measuring = false;
        return;
    }
    ExclamationBox(
        WordingUnlessEnglish(QStringLiteral("Unable to connect to USB device! "), QStringLiteral("USB通信中断! ")),
        WordingUnlessEnglish(QStringLiteral("USB Send Message"), QStringLiteral("USB消息")));
}

} // namespace

void UsbInit()
{
    ViSession manager = VisaDefaultRM;
    Visa->viOpenDefaultRM(&manager);
    VisaDefaultRM = manager;
    FindInstruments();
    UsbInitOk = true;
    ListCombo &devices = *DeviceChoiceForm->CbDeviceList;
    if (devices.ListCount() == 0) {
        ExclamationBox(WordingUnlessEnglish(QStringLiteral("Unable to connect to USB device！ "),
                                            QStringLiteral("无法连接USB设备！ ")),
                       WordingUnlessEnglish(QStringLiteral("USB Init"), QStringLiteral("USB初始化")));
        UsbInitOk = false;
        return;
    }
    if (devices.ListCount() == 1) {
        devices.SetListIndex(0);
        VisaResourceName = devices.Text();
    } else {
        DeviceChoiceForm->exec();
        VisaResourceName = VisaResourceBuffer[0].trimmed();
    }
    OpenInstrument();
}

void UsbWrite(const QString &text)
{
    if (!LinkUp)
        return;
    const QByteArray line = text.toLocal8Bit() + '\n';
    const std::int16_t noArgument = 0;
    // The line is the format itself: a percent sign would be read as a conversion. No command holds one.
    if (VisaPrintf(*Visa, VisaSession, line.constData(), &noArgument) >= 0)
        return;
    ReportFailedWrite();
    LinkLost();
}

QString UsbRead()
{
    const ReadBuffer buffer = NewReadBuffer();
    VisaScanf(*Visa, VisaSession, "%t", buffer.get());
    const std::size_t length = qstrnlen(buffer.get(), ReplyLimit);
    if (length >= ReplyLimit)
        throw RuntimeError(ErrorNumber::InvalidCall);
    return QString::fromLocal8Bit(buffer.get(), static_cast<qsizetype>(length));
}

QString UsbQuery(const QString &text)
{
    UsbWrite(text);
    return UsbRead();
}

std::int32_t UsbControlOut(std::int16_t bmRequestType, std::int16_t bRequest, std::uint16_t wValue,
                           std::uint16_t wIndex, std::uint16_t wLength, const std::uint8_t *data)
{
    const std::uint8_t nothing = 0;
    return Visa->viUsbControlOut(VisaSession, bmRequestType, bRequest, wValue, wIndex, wLength, data ? data : &nothing);
}

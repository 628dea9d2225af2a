#include "link/ConnectionModule.h"

#include "controls/Boxes.h"
#include "controls/Guard.h"
#include "display/SensorProjFrm.h"
#include "link/CommunicateFunBox.h"
#include "link/DeviceChoiceFrm.h"
#include "link/LinkIndicator.h"
#include "link/LinkState.h"
#include "link/USB_FuncBox.h"
#include "measure/CommandModule.h"
#include "measure/RunState.h"
#include "platform/RuntimeError.h"
#include "platform/Sleep.h"
#include "shell/ActiveProject.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"

namespace {

const QString IdentificationPrefix = QStringLiteral("ZEMRA Technologies,KV7");
constexpr int IdentificationTries = 3;
constexpr int IdentificationPause = 50; // ms
constexpr int ModelLength = 6;          // characters

/// Closes a standing link, after a question when a measurement runs. @return false when the user keeps the run
bool CloseLink()
{
    if (Measuring) {
        if (!AskOkCancel(Wording(QStringLiteral("Measuring is running, the action will stop measuring"),
                                 QStringLiteral("测量正在运行，此行动会关闭测量")),
                         Wording(QStringLiteral("Warning"), QStringLiteral("警告"))))
            return false;
        FormOfSlot(ActiveSlot()).EndLumoBtn_MouseClick();
        Measuring = false;
    }
    Visa->viClose(VisaSession);
    LinkUp = false;
    ShowLinkDown();
    return true;
}

std::int16_t KindOfModel(const QString &identification)
{
    const QString model = identification.section(QLatin1Char(','), 1).left(ModelLength).toUpper();
    if (model == QLatin1StringView("KV7050"))
        return InstrumentKindKV7050;
    if (model == QLatin1StringView("KV7060"))
        return InstrumentKindKV7060;
    return InstrumentKindOther;
}

/// Asks the instrument who it is. @return true for an instrument of the series; InstrumentKind is then set
bool Identify()
{
    const QString prefix = IdentificationPrefix.toUpper();
    for (int attempt = 1; attempt <= IdentificationTries; ++attempt) {
        const QString reply = QueryCommand(IdentificationQuery);
        if (reply.left(prefix.size()).toUpper() == prefix) {
            InstrumentKind = KindOfModel(reply);
            return true;
        }
        Sleep(IdentificationPause);
    }
    return false;
}

/// Required: the connect path goes through USB, whatever IOType says; only the identification follows it.
/// @return false when no instrument of the series was found, or none that says so
bool OpenLink()
{
    UsbInitOk = true;
    UsbInit();
    // Without a device nobody is asked: a session of an earlier link may still be open and answer.
    if (!UsbInitOk)
        return false;
    LinkUp = true;
    UsbWrite(IdentificationHandshake);
    UsbWrite(CommandHandshake);
    return Identify();
}

} // namespace

void ConnectInstrument()
{
    bool identified = false;
    try {
        if (LinkUp && !CloseLink())
            return;
        identified = OpenLink();
    } catch (const RuntimeError &) {
        identified = false;
    }
    if (!identified) {
        // Required: no message, and the panel keeps its text; a session that was opened stays open.
        LinkUp = false;
        ShowIndicatorOff();
        return;
    }
    if (!Measuring)
        MainForm->CheckLinkTimer->start();
    ShowLinkUp();
}

void DisconnectInstrument()
{
    if (LinkUp)
        CloseLink();
}

void CheckLinkTick()
{
    if (!Measuring && LinkUp) {
        UsbWrite(IdentificationHandshake);
    } else {
        MainForm->CheckLinkTimer->stop();
    }
}

void MakeDeviceChoice()
{
    DeviceChoiceForm = new DeviceChoiceFrm(MainForm);
    ConnectGuarded(DeviceChoiceForm, &DeviceChoiceFrm::Opened, DeviceChoiceForm, [] {
        if (DeviceChoiceForm->CbDeviceList->ListCount() > 0)
            DeviceChoiceForm->CbDeviceList->SetListIndex(0);
    });
    ConnectGuarded(DeviceChoiceForm->BtOk, &QPushButton::clicked, DeviceChoiceForm, [] {
        VisaResourceBuffer[0] = DeviceChoiceForm->CbDeviceList->Text();
        DeviceChoiceForm->accept();
    });
}

void UnloadDeviceChoice()
{
    delete DeviceChoiceForm;
    DeviceChoiceForm = nullptr;
}

#include "link/LinkState.h"

bool LinkUp = false;
bool UsbInitOk = false;
std::int16_t InstrumentKind = InstrumentKindOther;
std::uint8_t IOType = IOTypeUsb;
QString PrimaryAddressText;
QString Rs232Port;
std::int32_t Rs232BaudRate = 0;
std::uint8_t Rs232ParityDataBits = 0;
QString Rs232HandShake;
QString Rs232ReplyText;
std::uint32_t VisaDefaultRM = 0;
std::uint32_t VisaSession = 0;
QString VisaResourceName;
std::array<QString, 11> VisaResourceBuffer;
std::int32_t LastUsbStatus = 0;
DeviceChoiceFrm *DeviceChoiceForm = nullptr;

void ResetLinkState()
{
    LinkUp = false;
    UsbInitOk = false;
    InstrumentKind = InstrumentKindOther;
    IOType = IOTypeUsb;
    PrimaryAddressText.clear();
    Rs232Port.clear();
    Rs232BaudRate = 0;
    Rs232ParityDataBits = 0;
    Rs232HandShake.clear();
    Rs232ReplyText.clear();
    VisaDefaultRM = 0;
    VisaSession = 0;
    VisaResourceName.clear();
    VisaResourceBuffer.fill({});
    LastUsbStatus = 0;
    DeviceChoiceForm = nullptr;
}

#include "controls/Guard.h"
#include "link/USB_FuncBox.h"
#include "platform/SingleInstance.h"
#include "shell/FrameModule.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"
#include "visa/VisaLoader.h"

#include <QApplication>

int main(int, char **arguments)
{
    QCoreApplication::setApplicationName(QStringLiteral("Ostrakon"));
    const SingleInstance instance(QStringLiteral("Ostrakon"));
    if (!instance.IsOnly())
        return 0;
    // The program takes no command line, so the toolkit sees none either.
    int argumentCount = 1;
    const QApplication application(argumentCount, arguments);
    Visa = &LoadVisa();
    MainFrm frame;
    MainForm = &frame;
    RunGuarded(LoadFrame);
    frame.show();
    return QApplication::exec();
}

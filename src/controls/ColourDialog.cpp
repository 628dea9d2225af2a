#include "controls/ColourDialog.h"

#include "controls/ActiveTop.h"
#include "platform/RuntimeError.h"

#include <QColorDialog>

ColourDialog::ColourDialog(QObject *parent) : QObject(parent) {}

void ColourDialog::ShowColour()
{
    QColorDialog dialog(ActiveTop());
    dialog.setObjectName(QStringLiteral("ColourDialog"));
#ifdef Q_OS_LINUX
    // As the file dialogue: the same one under every desktop, in the program's own language.
    dialog.setOption(QColorDialog::DontUseNativeDialog);
#endif
    dialog.setCurrentColor((Flags & StartFromColour) != 0 ? ColourFromRef(Colour) : QColor(Qt::black));
    if (dialog.exec() == QDialog::Accepted) {
        Colour = RefFromColour(dialog.selectedColor());
        return;
    }
    if (CancelError)
        throw RuntimeError(ErrorNumber::Cancelled);
}

#include "shell/AboutFrm.h"

#include "controls/FormDesign.h"

#include <QIcon>

AboutFrm::AboutFrm(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("AboutFrm"));
    // Required: another model and another version than those of the About command's box. Nobody should bring them up to
    // date.
    setWindowTitle(QStringLiteral("About Ostrakon For KV7050"));
    setFixedSize(PixelsFromTwips(4500), PixelsFromTwips(1950));
    PicAbout = Placed(Named<QLabel>("PicAbout", this), 300, 300, 720, 720);
    PicAbout->setPixmap(QIcon(QStringLiteral(":/icons/project.svg")).pixmap(PicAbout->size()));
    LabVersion = Placed(Named<QLabel>("LabVersion", QStringLiteral("Version:00.02.00.00"), this), 1350, 300, 2850, 720);
    ComOK = Placed(Named<QPushButton>("ComOK", QStringLiteral("OK"), this), 1575, 1320, 1350, 420);
    ComOK->setAutoDefault(false);
    connect(ComOK, &QPushButton::clicked, this, &AboutFrm::close);
}

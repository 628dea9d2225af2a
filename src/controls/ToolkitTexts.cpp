#include "controls/ToolkitTexts.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTranslator>

#include <memory>

namespace {

const QString ChineseCatalogue = QStringLiteral("qtbase_zh_CN");

QPointer<QTranslator> Catalogue; ///< the installed one; belongs to the application

} // namespace

void SetToolkitTexts(bool chinese, const QString &folder)
{
    if (!chinese) {
        delete Catalogue; // it takes itself out
        return;
    }
    if (Catalogue != nullptr)
        return;
    auto catalogue = std::make_unique<QTranslator>();
    if (!catalogue->load(ChineseCatalogue, folder))
        return;
    Catalogue = catalogue.release();
    Catalogue->setParent(QCoreApplication::instance());
    QCoreApplication::installTranslator(Catalogue);
}

#include "controls/CommonDialog.h"

#include "controls/ActiveTop.h"
#include "platform/RuntimeError.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>

namespace {

/// The pairs of a filter, without an incomplete one at the end.
struct FilterPairs {
    QStringList Texts;
    QStringList NameFilters; ///< in the toolkit's form: text, patterns between brackets
};

FilterPairs PairsOfFilter(const QString &filter)
{
    FilterPairs pairs;
    const QStringList parts = filter.split(u'|');
    for (qsizetype part = 0; part + 1 < parts.size(); part += 2) {
        QString patterns = parts[part + 1];
        patterns.replace(u';', u' ');
        pairs.Texts.append(parts[part]);
        pairs.NameFilters.append(parts[part] + u'(' + patterns + u')');
    }
    return pairs;
}

/// The index of a chosen filter, from 1; the dialogue may name it with or without its patterns.
int FilterIndexOf(const FilterPairs &pairs, const QString &chosen)
{
    const qsizetype full = pairs.NameFilters.indexOf(chosen);
    return static_cast<int>(full >= 0 ? full : pairs.Texts.indexOf(chosen)) + 1;
}

} // namespace

CommonDialog::CommonDialog(QObject *parent) : QObject(parent) {}

void CommonDialog::ShowOpen()
{
    Show(false);
}

void CommonDialog::ShowSave()
{
    Show(true);
}

void CommonDialog::Show(bool save)
{
    const FilterPairs pairs = PairsOfFilter(Filter);
    QFileDialog dialog(ActiveTop());
    dialog.setObjectName(QStringLiteral("CommonDialog"));
    dialog.setWindowTitle(DialogTitle);
#ifdef Q_OS_LINUX
    // Desktop environments bring dialogues that add extensions and ask on their own.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
#endif
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // For opening too: a missing file is the caller's matter, the dialogue asks nothing.
    dialog.setFileMode(QFileDialog::AnyFile);
    if (!pairs.NameFilters.isEmpty()) {
        dialog.setNameFilters(pairs.NameFilters);
        dialog.selectNameFilter(pairs.NameFilters.value(FilterIndex - 1, pairs.NameFilters.first()));
    }
    if (!InitDir.isEmpty() && QFileInfo(InitDir).isDir())
        dialog.setDirectory(InitDir);
    if (!FileName.isEmpty())
        dialog.selectFile(FileName);

    const bool accepted = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    if (accepted) {
        // A typed "../name" or "./name" is handed over as it was typed, behind the folder shown.
        FileName = QDir::cleanPath(dialog.selectedFiles().first());
        FilterIndex = std::max(1, FilterIndexOf(pairs, dialog.selectedNameFilter()));
        return;
    }
    FileName.clear();
    if (CancelError)
        throw RuntimeError(ErrorNumber::Cancelled);
}

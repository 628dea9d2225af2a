/// @file
/// Message boxes over the active window. Raised by modules and by Guard only.
#pragma once

#include <QString>

/// The title of a box that has none of its own.
inline const QString BoxTitle = QStringLiteral("Ostrakon");

/// A refusal: exclamation icon, OK.
void ExclamationBox(const QString &text, const QString &title = BoxTitle);

/// A limit or a notice: information icon, OK.
void InformationBox(const QString &text, const QString &title = BoxTitle);

/// A plain notice without an icon, OK.
void PlainBox(const QString &text, const QString &title = BoxTitle);

/// A question with OK and Cancel, exclamation icon. True for OK; closing the box is Cancel.
bool AskOkCancel(const QString &text, const QString &title = BoxTitle);

/// A question with Yes and No, question icon. True for Yes; closing the box is No.
bool AskYesNo(const QString &text, const QString &title = BoxTitle);

/// @file
/// What the whole program shares: the frame, the language, and the modes of the commands that make and remove projects.
#pragma once

#include <QString>

#include <cstdint>

class MainFrm;

inline constexpr std::int32_t LanguageChinese = 0;
inline constexpr std::int32_t LanguageEnglish = 1;

/// The frame. Set by the entry point before the frame loads, nullptr ahead of that.
extern MainFrm *MainForm;

/// 0 Chinese, 1 English. Read from the settings store when the frame loads, written by the two language commands. A
/// stored value that is neither stays as it is: sites that test for English then show Chinese, the others English.
extern std::int32_t CurrentLanguage;

/// The project panel is shown. Set when the frame loads and by the panel's command, cleared by that and by its close
/// box.
extern bool ProjectPanelVisible;

/// Project windows close without their own question. Set while all of them are closed, while the frame closes, and
/// while a project that cannot be drawn is closed; cleared when that is over or refused.
extern bool ClosingAll;

/// What Done in the sensor dialogue does. Set by the commands New and sensor property, cleared by the dialogue's Done.
extern bool NewProjectMode;
extern bool EditProjectMode;

/// Picks one of two texts: the Chinese one when CurrentLanguage is 0, otherwise the English one.
QString Wording(const QString &english, const QString &chinese);

/// The same for the boxes of the USB transport: the English text when CurrentLanguage is 1, otherwise the Chinese one.
QString WordingUnlessEnglish(const QString &english, const QString &chinese);

/// Puts the variables of this file back to what they are before the frame loads; MainForm stays.
void ResetMainModule();

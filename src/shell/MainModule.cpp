#include "shell/MainModule.h"

MainFrm *MainForm = nullptr;
std::int32_t CurrentLanguage = LanguageEnglish;
bool ProjectPanelVisible = false;
bool ClosingAll = false;
bool NewProjectMode = false;
bool EditProjectMode = false;

QString Wording(const QString &english, const QString &chinese)
{
    return CurrentLanguage == LanguageChinese ? chinese : english;
}

QString WordingUnlessEnglish(const QString &english, const QString &chinese)
{
    return CurrentLanguage == LanguageEnglish ? english : chinese;
}

void ResetMainModule()
{
    CurrentLanguage = LanguageEnglish;
    ProjectPanelVisible = false;
    ClosingAll = false;
    NewProjectMode = false;
    EditProjectMode = false;
}

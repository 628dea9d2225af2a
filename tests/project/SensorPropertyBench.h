/// @file
/// The sensor dialogue for its tests: a frame around it, the texts that it shows, and the hands that fill it in.
#pragma once

#include "project/LifecycleModule.h"
#include "project/SensorPropertyFrm.h"
#include "project/SensorPropertyModule.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"
#include "support/Hands.h"

#include <QScopeGuard>

#include <functional>

using Buttons = QList<QMessageBox::StandardButton>;

inline constexpr auto Ok = QMessageBox::Ok;

/// A text in both languages.
struct Text {
    const char *English;
    const char *Chinese;

    QString InCurrentLanguage() const { return QString::fromUtf8(CurrentLanguage == 0 ? Chinese : English); }
};

inline constexpr Text nameHint{"<Input sensor name here>", "<输入传感器名称>"};
inline constexpr Text nameMissing{"Please input sensor name! ", "请输入传感器名称! "};
inline constexpr Text nameCutByDone{"The character number of Sensor name is limited not more than 9! ",
                                    "传感器名称字符不超过9个! "};
inline constexpr Text nameCutOnLeaving{"The character number of Sensor name is limited not more than 9! ",
                                       "传感器名称字符不能超过9个! "};
inline constexpr Text nameCutByList{"The character number of Sensor name is limited less than 20! ",
                                    "传感器名称字符不超过20个! "};
inline constexpr Text typeMissing{"Please select right type and unit! ", "请选择合适的类型和单位! "};
inline constexpr Text unitMissing{"Please input unit! ", "请输入单位! "};
inline constexpr Text unitCut{"The character number of output unit is limited not more than 2! ",
                              "输出单位字符不能超过2个! "};
inline constexpr Text typeUnsupported{"Don't support this sensor type at present! ", "目前不支持此类型传感器! "};
inline constexpr Text parameterMissing{"The parameter can not be empty! ", "参数值不能为空! "};
inline constexpr Text parameterWrong{"The parameter value must between 49 and 2100ohm! ",
                                     "参数阻值范围必须在49-2100ohm之间! "};
inline constexpr Text deviceWrong{"Device can not match.Please create new project! ",
                                  "当前工程与设备不匹配，请建立新工程！ "};
inline constexpr Text notConnected{"Please connect to the instrument! ", "请和仪器连接! "};

inline const QString userType = QStringLiteral("Volume"); ///< a type that nobody knows

inline QStringList Entries(const ListCombo *list)
{
    QStringList entries;
    for (int i = 0; i < list->ListCount(); ++i)
        entries << list->itemText(i);
    return entries;
}

inline QStringList Words(const char *words)
{
    return QString::fromLatin1(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// Chooses an entry as a user does without the mouse.
inline void Choose(ListCombo *list, int index)
{
    QTest::keyClick(list, Qt::Key_Home);
    for (int i = 0; i < index; ++i)
        QTest::keyClick(list, Qt::Key_Down);
}

inline void Choose(ListCombo *list, const QString &text)
{
    Choose(list, list->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

/// A form with a good name and a type from the list.
inline void FillGood(SensorPropertyFrm &form, const QString &type = QStringLiteral("DCV"))
{
    Retype(form.Txtname, QStringLiteral("Probe"));
    Choose(form.Combtype, type);
}

/// A frame that makes project windows as the program does, linked to a KV7060.
class SensorPropertyBench : public BareFrame {
public:
    SensorPropertyBench()
    {
        QObject::connect(&frame, &MainFrm::ProjectWindowMade, &frame,
                         [](SensorProjFrm *form) { ConnectLifecycle(*form); });
        InstrumentKind = InstrumentKindKV7060;
        LinkUp = true;
    }
};

using FormRoutine = std::function<void(SensorPropertyFrm &)>;

/// Opens the dialogue, runs a routine on it and, where it is still open then, closes it.
inline void WithDialogue(
    const FormRoutine &routine, const std::function<void()> &open = [] { ShowSensorProperty(); })
{
    const WhenModal answer(QStringLiteral("SensorPropertyFrm"), [&](QWidget *dialog) {
        auto &form = *qobject_cast<SensorPropertyFrm *>(dialog);
        const auto closed = qScopeGuard([&form] {
            if (form.isVisible())
                form.reject();
        });
        routine(form);
    });
    open();
}

/// The same for a new project.
inline void OpenNew(const FormRoutine &routine)
{
    NewProjectMode = true;
    EditProjectMode = false;
    WithDialogue(routine);
}

/// @file
/// What a text box reports, for its tests.
#pragma once

#include "controls/TextBox.h"

#include <QList>
#include <QStringList>

#include <functional>

/// Notes the keys of a box, and the text that stood there when each was reported.
struct KeyLog {
    explicit KeyLog(TextBox &box)
    {
        QObject::connect(&box, &TextBox::KeyPress, &box, [this, &box](int &key) {
            Keys.append(key);
            Texts.append(box.text());
            if (Swallow(key))
                key = 0;
        });
    }

    QList<int> Keys;
    QStringList Texts;
    std::function<bool(int)> Swallow = [](int) { return false; };
};

inline bool NoDigit(int key)
{
    return key < '0' || key > '9';
}

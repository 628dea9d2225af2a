/// @file
/// The common colour dialogue: its settings stay from one use to the next.
#pragma once

#include "platform/Measures.h"

#include <QObject>

class ColourDialog : public QObject {
    Q_OBJECT

public:
    explicit ColourDialog(QObject *parent = nullptr);

    static constexpr int StartFromColour = 1; ///< the flag without which the dialogue opens with black

    ColourRef Colour = 0;     ///< what it starts from, and the chosen one after OK; a cancel leaves it
    int Flags = 0;            ///< 0 or StartFromColour
    bool CancelError = false; ///< a cancel throws RuntimeError 32755

    void ShowColour();
};

/// @file
/// The dialogue that sets the colours of the time curve of the values.
#pragma once

#include "display/WaveColorrizeFrm.h"

class Wave1picColorrizeFrm : public WaveColorrizeFrm {
    Q_OBJECT

public:
    explicit Wave1picColorrizeFrm(QWidget *parent = nullptr) : WaveColorrizeFrm("Wave1picColorrizeFrm", parent) {}
};

/// @file
/// The dialogue that sets the colours of the time curve of the readings.
#pragma once

#include "display/WaveColorrizeFrm.h"

class Wave2picColorrizeFrm : public WaveColorrizeFrm {
    Q_OBJECT

public:
    explicit Wave2picColorrizeFrm(QWidget *parent = nullptr) : WaveColorrizeFrm("Wave2picColorrizeFrm", parent) {}
};

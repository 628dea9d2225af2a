/// @file
/// The run-time error that a step ends with, as a number to compare.
#pragma once

#include "platform/RuntimeError.h"

/// The number of the RuntimeError that a step throws, 0 when it throws none.
template <typename Step>
int ErrorOf(const Step &step)
{
    try {
        step();
    } catch (const RuntimeError &error) {
        return error.Number();
    }
    return 0;
}

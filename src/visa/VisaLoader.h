/// @file
/// Finds a VISA library at run time. What is installed decides: no option and no environment variable of this program
/// chooses a library.
#pragma once

#include "visa/VisaTable.h"

#include <optional>
#include <span>

/// The table in which no device is found: every call returns VI_ERROR_LIBRARY_NFOUND, viFindRsrc sets the count to 0,
/// sessions and find lists are given as 0, and text buffers are left as they were. Lives as long as the process.
const VisaTable &AbsentVisa();

/// Loads the first library of names in which all eight functions resolve. A name without a folder is looked for by the
/// system's loader; a library that lacks a function is unloaded again and the next name is tried.
/// @return pointers into the loaded library, which stays loaded until the process ends and which nobody unloads;
///         nothing when no name gives a whole VISA library
std::optional<VisaTable> LoadVisaFrom(std::span<const char *const> names);

/// The VISA library of this system: "libvisa.so.0" or "libvisa.so", on Windows "visa64.dll" or "visa32.dll", else
/// AbsentVisa(). Looked for at the first call and kept; the table is owned by this module and lives as long as the
/// process.
const VisaTable &LoadVisa();

/// True when LoadVisa() stands on a library; looks for one when LoadVisa() has not been called yet.
bool VisaLibraryFound();

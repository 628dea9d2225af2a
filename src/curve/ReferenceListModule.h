/// @file
/// The lists of reference rows in the project windows.
#pragma once

/// Rebuilds the lists of slots 0 to ProjectCount - 1 from their tables; the lists of built-in sensors stay empty. Lines
/// of marked rows are selected. A slot without a window is passed over.
void RefreshReferenceLists();

/// Puts the words of all lists into the current language. Lines and selection stay.
void TranslateReferenceLists();

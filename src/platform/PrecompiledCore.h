/// @file
/// The toolkit's and the standard library's headers that most files share, compiled once.
#pragma once

#include <QtCore>
#include <QtGui>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

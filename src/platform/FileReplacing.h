/// @file
/// Saving: a file that stands whole on the disk takes the place of the old one.
#pragma once

#include <QByteArray>
#include <QString>

/// Writes a file. An old one is replaced only when the new one is whole on the disk: whatever happens before that, an
/// error, a crash or a loss of power, leaves the old one untouched. A symbolic link stays one, its target is replaced;
/// the file keeps its mode. A file that may not be written is refused even where its folder would let it be replaced.
///
/// Where the folder takes no new file beside the old one, the old one is overwritten in place, and gets its bytes back
/// on an error; only there a crash on the way can do harm.
/// @throws RuntimeError 70 without permission, for what is no regular file, and while another process holds a lock
/// (flock) on it; 55 when this program has left it open; 76 without its folder; 61 without room; 7 without memory; 57
/// for other errors of the device
void ReplaceWholeFile(const QString &path, const QByteArray &bytes);

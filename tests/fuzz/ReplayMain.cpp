/// @file
/// Feeds a fuzz target every file of a folder, so that what once was found stays mended, with any compiler.
#include "fuzz/FuzzTarget.h"

#include <QDir>
#include <QFile>

#include <cstdio>

int main(int count, char **arguments)
{
    const QDir folder(count == 2 ? QString::fromLocal8Bit(arguments[1]) : QString());
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    for (const QString &name : names) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "cannot read %s\n", qPrintable(file.fileName()));
            return EXIT_FAILURE;
        }
        std::printf("%s\n", qPrintable(name));
        std::fflush(stdout);
        const QByteArray bytes = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
    }
    if (count != 2 || names.isEmpty()) {
        std::fprintf(stderr, "one folder with files, please\n");
        return EXIT_FAILURE;
    }
    std::printf("%d files\n", static_cast<int>(names.size()));
    return EXIT_SUCCESS;
}

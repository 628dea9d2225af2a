/// @file
/// Files written straight to the disk, and files that are left open until the program ends.
#include "platform/FileAccess.h"
#include "platform/FileReplacing.h"
#include "support/ChildProcess.h"
#include "support/ErrorOf.h"
#include "support/FileBytes.h"
#include "support/UserWithoutRights.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

#include <sys/stat.h>

namespace {

struct stat StatusOf(const QString &path)
{
    struct stat status {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        qFatal("nothing at %s", qPrintable(path));
    return status;
}

void SetMode(const QString &path, mode_t mode)
{
    if (chmod(QFile::encodeName(path).constData(), mode) != 0)
        qFatal("no mode for %s", qPrintable(path));
}

int WritingError(const QString &path, const QByteArray &bytes = "new")
{
    return ErrorOf([&] { WriteFileBytes(path, bytes); });
}

qsizetype OpenDescriptors()
{
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::System | QDir::Files).size();
}

} // namespace

class FileAccessTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        SetMode(m_folder->path(), 0755);
    }
    void cleanup()
    {
        SetMode(m_folder->path(), 0700);
        m_folder.reset();
    }

    void the_bytes_and_nothing_else_stand_data();
    void the_bytes_and_nothing_else_stand();
    void the_start_of_a_file_is_read();
    void a_new_file_has_the_mode_of_any_other();
    void an_old_file_stays_the_same_file();
    void a_link_stays_a_link();
    void a_link_that_leads_nowhere_gets_its_file();
    void a_file_that_can_only_be_written_is_written();
    void an_old_file_in_a_read_only_folder_is_written();
    void a_file_of_another_user_is_written_in_a_shared_folder();
    void without_permission_nothing_is_written();
    void without_its_folder_nothing_is_written();
    void what_is_no_regular_file_is_refused_data();
    void what_is_no_regular_file_is_refused();
    void a_file_that_another_process_holds_is_refused_data();
    void a_file_that_another_process_holds_is_refused();
    void what_was_written_ahead_of_an_error_stays();

    void an_input_file_closes_with_its_object();
    void a_file_left_open_stays_so();
    void this_program_reads_but_does_not_write_what_it_has_left_open();
    void another_name_is_the_same_file();
    void another_file_in_its_place_is_written();
    void a_file_is_left_open_once();

private:
    QString Path(const QString &name = QStringLiteral("file.CSV")) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void FileAccessTest::the_bytes_and_nothing_else_stand_data()
{
    QTest::addColumn<QByteArray>("old");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("no old file") << QByteArray() << QByteArray("new\r\n");
    QTest::newRow("longer") << QByteArray("old") << QByteArray("much longer");
    QTest::newRow("shorter") << QByteArray("much longer") << QByteArray("new");
    QTest::newRow("empty") << QByteArray("old") << QByteArray();
    QTest::newRow("a megabyte") << QByteArray("old") << QByteArray("0123456789\r\n").repeated(100'000);
}

void FileAccessTest::the_bytes_and_nothing_else_stand()
{
    QFETCH(QByteArray, old);
    QFETCH(QByteArray, bytes);
    if (!old.isEmpty())
        QVERIFY(PutBytes(Path(), old));
    WriteFileBytes(Path(), bytes);
    QVERIFY(BytesOf(Path()) == bytes);
    QCOMPARE(NamesIn(m_folder->path()), QStringList(QStringLiteral("file.CSV")));
    QVERIFY(InputFile(Path()).ReadAll() == bytes);
}

void FileAccessTest::the_start_of_a_file_is_read()
{
    const QByteArray bytes = QByteArray("0123456789").repeated(20'000);
    QVERIFY(PutBytes(Path(), bytes));
    const InputFile file(Path());
    for (const qint64 most : {0, 1, 65535, 65536, 65537, 200'000})
        QVERIFY(file.ReadStart(most) == bytes.first(most)); // from the start, each time
    QVERIFY(file.ReadStart(200'001) == bytes);
}

void FileAccessTest::a_new_file_has_the_mode_of_any_other()
{
    for (const mode_t mask : {0022U, 0077U, 0002U}) {
        QFile::remove(Path());
        const mode_t before = umask(mask);
        WriteFileBytes(Path(), "new");
        umask(before);
        QCOMPARE(StatusOf(Path()).st_mode & 07777U, 0666U & ~mask);
    }
}

void FileAccessTest::an_old_file_stays_the_same_file()
{
    QVERIFY(PutBytes(Path(), "old"));
    SetMode(Path(), 0640);
    QCOMPARE(link(QFile::encodeName(Path()).constData(), QFile::encodeName(Path(QStringLiteral("other"))).constData()),
             0);
    WriteFileBytes(Path(), "new");
    QCOMPARE(BytesOf(Path(QStringLiteral("other"))), QByteArray("new"));
    QCOMPARE(StatusOf(Path()).st_mode & 07777U, 0640U);
}

void FileAccessTest::a_link_stays_a_link()
{
    QVERIFY(PutBytes(Path(), "old"));
    QVERIFY(QFile::link(QStringLiteral("file.CSV"), Path(QStringLiteral("link"))));
    WriteFileBytes(Path(QStringLiteral("link")), "new");
    QCOMPARE(BytesOf(Path()), QByteArray("new"));
    QVERIFY(QFileInfo(Path(QStringLiteral("link"))).isSymLink());
}

void FileAccessTest::a_link_that_leads_nowhere_gets_its_file()
{
    QVERIFY(QFile::link(QStringLiteral("file.CSV"), Path(QStringLiteral("link"))));
    WriteFileBytes(Path(QStringLiteral("link")), "new");
    QCOMPARE(BytesOf(Path()), QByteArray("new"));
}

void FileAccessTest::a_file_that_can_only_be_written_is_written()
{
    QVERIFY(PutBytes(Path(), "old"));
    SetMode(Path(), 0222);
    {
        const UserWithoutRights user;
        QVERIFY(user.IsBound());
        QCOMPARE(WritingError(Path()), 0);
    }
    SetMode(Path(), 0600);
    QCOMPARE(BytesOf(Path()), QByteArray("new"));
}

void FileAccessTest::an_old_file_in_a_read_only_folder_is_written()
{
    QVERIFY(PutBytes(Path(), "old"));
    SetMode(Path(), 0666);
    SetMode(m_folder->path(), 0555);
    const UserWithoutRights user;
    QVERIFY(user.IsBound());
    QCOMPARE(WritingError(Path()), 0);
    QCOMPARE(BytesOf(Path()), QByteArray("new"));
    QCOMPARE(WritingError(Path(QStringLiteral("another"))), 70);
    QCOMPARE(WritingError(Path(QStringLiteral("none/file.CSV"))), 76);
}

/// Systems may refuse to make files there that others have made already.
void FileAccessTest::a_file_of_another_user_is_written_in_a_shared_folder()
{
    SetMode(m_folder->path(), 01777);
    QVERIFY(PutBytes(Path(), "old"));
    SetMode(Path(), 0666);
    const UserWithoutRights user;
    QVERIFY(user.IsBound());
    QCOMPARE(WritingError(Path()), 0);
    QCOMPARE(BytesOf(Path()), QByteArray("new"));
}

void FileAccessTest::without_permission_nothing_is_written()
{
    QVERIFY(PutBytes(Path(), "old"));
    SetMode(Path(), 0444);
    SetMode(m_folder->path(), 0777);
    {
        const UserWithoutRights user;
        QVERIFY(user.IsBound());
        QCOMPARE(WritingError(Path()), 70);
    }
    QCOMPARE(BytesOf(Path()), QByteArray("old"));
    QVERIFY(QDir().mkdir(Path(QStringLiteral("locked"))));
    SetMode(Path(QStringLiteral("locked")), 0600);
    const UserWithoutRights user;
    QVERIFY(user.IsBound());
    QCOMPARE(WritingError(Path(QStringLiteral("locked/file.CSV"))), 70);
    QCOMPARE(ErrorOf([&] { InputFile(Path(QStringLiteral("locked/file.CSV"))); }), 70);
}

void FileAccessTest::without_its_folder_nothing_is_written()
{
    QCOMPARE(WritingError(Path(QStringLiteral("none/file.CSV"))), 76);
    QVERIFY(PutBytes(Path(), "old"));
    QCOMPARE(WritingError(Path(QStringLiteral("file.CSV/file.CSV"))), 76);
    QCOMPARE(WritingError(Path(QString(256, u'a'))), 76);
    QCOMPARE(WritingError(m_folder->path() + u'/'), 70);
}

void FileAccessTest::what_is_no_regular_file_is_refused_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("folder") << QStringLiteral("folder");
    QTest::newRow("pipe without another end") << QStringLiteral("pipe");
    for (const char *device : {"/dev/full", "/dev/null", "/"})
        QTest::newRow(device) << QString::fromLatin1(device);
}

void FileAccessTest::what_is_no_regular_file_is_refused()
{
    QFETCH(QString, path);
    QVERIFY(QDir().mkdir(Path(QStringLiteral("folder"))));
    QCOMPARE(mkfifo(QFile::encodeName(Path(QStringLiteral("pipe"))).constData(), 0600), 0);
    const QString whole = path.startsWith(u'/') ? path : Path(path);
    QCOMPARE(WritingError(whole), 70);
    QCOMPARE(ErrorOf([&] { InputFile file(whole); }), 70);
}

void FileAccessTest::a_file_that_another_process_holds_is_refused_data()
{
    QTest::addColumn<int>("lock");
    QTest::newRow("it reads") << LOCK_SH;
    QTest::newRow("it writes") << LOCK_EX;
}

void FileAccessTest::a_file_that_another_process_holds_is_refused()
{
    QFETCH(int, lock);
    QVERIFY(PutBytes(Path(), "old"));
    {
        const LockHolder other(Path(), lock);
        QVERIFY(other.Holds());
        QCOMPARE(WritingError(Path()), 70);
        QCOMPARE(BytesOf(Path()), QByteArray("old"));
        QCOMPARE(ErrorOf([&] { InputFile file(Path()); }), lock == LOCK_EX ? 70 : 0);
    }
    QCOMPARE(WritingError(Path()), 0);
}

void FileAccessTest::what_was_written_ahead_of_an_error_stays()
{
    const QByteArray bytes = QByteArray("0123456789\r\n").repeated(10);
    for (const int room : {0, 1, 60, 119}) {
        QVERIFY(PutBytes(Path(), "old bytes"));
        const ChildEnd end = RunInChild([&] {
            const FileSizeLimit limit(static_cast<rlim_t>(room));
            WriteFileBytes(Path(), bytes);
        });
        QCOMPARE(end.Error, 61);
        QCOMPARE(BytesOf(Path()), bytes.first(room));
    }
}

void FileAccessTest::an_input_file_closes_with_its_object()
{
    QVERIFY(PutBytes(Path(), "bytes"));
    {
        const InputFile file(Path());
        QVERIFY(!LockHolder(Path(), LOCK_EX).Holds());
        QVERIFY(LockHolder(Path(), LOCK_SH).Holds());
    }
    QVERIFY(LockHolder(Path(), LOCK_EX).Holds());
    QCOMPARE(ErrorOf([&] { InputFile(Path(QStringLiteral("none"))); }), 53);
}

void FileAccessTest::a_file_left_open_stays_so()
{
    QVERIFY(PutBytes(Path(), "bytes"));
    InputFile::LeaveOpen(InputFile(Path()));
    QVERIFY(!LockHolder(Path(), LOCK_EX).Holds());
    QVERIFY(LockHolder(Path(), LOCK_SH).Holds());
    {
        const InputFile again(Path());
        QCOMPARE(again.ReadAll(), QByteArray("bytes"));
    }
    QVERIFY(!LockHolder(Path(), LOCK_EX).Holds());
}

void FileAccessTest::this_program_reads_but_does_not_write_what_it_has_left_open()
{
    QVERIFY(PutBytes(Path(), "bytes"));
    InputFile::LeaveOpen(InputFile(Path()));
    QCOMPARE(WritingError(Path()), 55);
    QCOMPARE(ErrorOf([&] { ReplaceWholeFile(Path(), "new"); }), 55);
    QCOMPARE(InputFile(Path()).ReadAll(), QByteArray("bytes"));
}

void FileAccessTest::another_name_is_the_same_file()
{
    QVERIFY(PutBytes(Path(), "bytes"));
    InputFile::LeaveOpen(InputFile(Path()));
    const QString moved = Path(QStringLiteral("moved"));
    QVERIFY(QFile::rename(Path(), moved));
    QVERIFY(QFile::link(moved, Path(QStringLiteral("link"))));
    QCOMPARE(WritingError(moved), 55);
    QCOMPARE(WritingError(Path(QStringLiteral("link"))), 55);
    QCOMPARE(BytesOf(moved), QByteArray("bytes"));
}

void FileAccessTest::another_file_in_its_place_is_written()
{
    QVERIFY(PutBytes(Path(), "bytes"));
    InputFile::LeaveOpen(InputFile(Path()));
    QVERIFY(QFile::remove(Path()));
    QCOMPARE(WritingError(Path()), 0);
    QCOMPARE(WritingError(Path()), 0);
    QCOMPARE(BytesOf(Path()), QByteArray("new"));
}

void FileAccessTest::a_file_is_left_open_once()
{
    QVERIFY(PutBytes(Path(), "bytes"));
    const qsizetype before = OpenDescriptors();
    for (int i = 0; i < 5; ++i)
        InputFile::LeaveOpen(InputFile(Path()));
    QCOMPARE(OpenDescriptors(), before + 1);
    QVERIFY(PutBytes(Path(QStringLiteral("another")), "bytes"));
    InputFile::LeaveOpen(InputFile(Path(QStringLiteral("another"))));
    QCOMPARE(OpenDescriptors(), before + 2);
}

QTEST_MAIN(FileAccessTest)
#include "tst_file_access.moc"

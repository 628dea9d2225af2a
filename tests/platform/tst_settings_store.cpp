/// @file
/// The settings store, in a folder of the test's own.

#include "platform/SettingsStore.h"
#include "support/ErrorOf.h"
#include "support/UserWithoutRights.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

const QString Application = QStringLiteral("Ostrakon");
const QString Section = QStringLiteral("IOSetting");
const QString Key = QStringLiteral("IOType");

constexpr QFile::Permissions ReadOnlyFolder =
    QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
constexpr QFile::Permissions ReadOnlyFile = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
constexpr QFile::Permissions OpenFile = ReadOnlyFile | QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;

} // namespace

class TestSettingsStore : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QString StorePath() const { return m_folder->filePath(QStringLiteral("Ostrakon.ini")); }
    QString Read() const { return ReadSetting(Application, Section, Key, QStringLiteral("none")); }

    QByteArray Bytes() const
    {
        QFile file(StorePath());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }

    bool Put(const QByteArray &bytes) const
    {
        QFile file(StorePath());
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder->path());
    }

    void cleanup()
    {
        QVERIFY(QFile::setPermissions(m_folder->path(), ReadOnlyFolder | QFile::WriteOwner));
        QVERIFY(m_folder->remove());
    }

    void aKeyThatIsNotThereGivesTheDefault()
    {
        QCOMPARE(Read(), QStringLiteral("none"));
        WriteSetting(Application, Section, QStringLiteral("Other"), QStringLiteral("1"));
        QCOMPARE(Read(), QStringLiteral("none"));
        QCOMPARE(ReadSetting(Application, QStringLiteral("GPIB"), Key, QStringLiteral("5")), QStringLiteral("5"));
        QCOMPARE(ReadSetting(QStringLiteral("Another"), Section, Key, QStringLiteral("6")), QStringLiteral("6"));
    }

    void readingMakesNoFile()
    {
        Read();
        QVERIFY(!QFile::exists(StorePath()));
    }

    void aTextComesBackAsItWas_data()
    {
        QTest::addColumn<QString>("text");
        const char *texts[] = {"1",           "USB",        "",      "a,b",        "a, b ,c",     ",",
                               "8,N,1",       "中文，全角", "℃ Ω µ", "\"quoted\"", "back\\slash", "a=b;c#d",
                               " blanks ",    "@Invalid()", "@@x",   "true",       "0x10",        "%41",
                               "line\r\nend", "[section]",  "a\tb"};
        for (const char *text : texts)
            QTest::newRow(text) << QString::fromUtf8(text);
        QTest::newRow("beyond 16 bits") << QString::fromUcs4(U"\U0001F321");
        QTest::newRow("null text") << QString();
    }
    void aTextComesBackAsItWas()
    {
        QFETCH(QString, text);
        WriteSetting(Application, Section, Key, text);
        QCOMPARE(Read(), text);
    }

    /// Another process has no part in what this one remembers: it sees the file alone.
    void aTextIsOnDiskWhenTheCallReturns()
    {
        WriteSetting(Application, Section, Key, QStringLiteral("1"));
        QVERIFY(Bytes().contains("[IOSetting]"));
        QVERIFY(Bytes().contains("IOType=1"));
        WriteSetting(Application, Section, Key, QStringLiteral("0"));
        QVERIFY(Bytes().contains("IOType=0"));
        QVERIFY(!Bytes().contains("IOType=1"));
    }

    void oneKeyLeavesTheOthers()
    {
        WriteSetting(Application, Section, Key, QStringLiteral("2"));
        WriteSetting(Application, QStringLiteral("RS232"), QStringLiteral("ParityDataBits"), QStringLiteral("中,8"));
        QCOMPARE(Read(), QStringLiteral("2"));
        QCOMPARE(ReadSetting(Application, QStringLiteral("RS232"), QStringLiteral("ParityDataBits"), QString()),
                 QStringLiteral("中,8"));
    }

    void aFileWrittenByHandIsRead_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << QByteArray("[IOSetting]\nIOType=3\n") << QStringLiteral("3");
        QTest::newRow("CR LF") << QByteArray("[IOSetting]\r\nIOType=3\r\n") << QStringLiteral("3");
        QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF[IOSetting]\nIOType=3\n") << QStringLiteral("3");
        QTest::newRow("comment") << QByteArray("; mine\n\n[IOSetting]\nIOType=3") << QStringLiteral("3");
        QTest::newRow("comma without quotes") << QByteArray("[IOSetting]\nIOType=8,N,1\n") << QStringLiteral("8,N,1");
        QTest::newRow("UTF-8") << QByteArray("[IOSetting]\nIOType=\xE4\xB8\xAD\n") << QStringLiteral("中");
        QTest::newRow("empty file") << QByteArray() << QStringLiteral("none");
    }
    void aFileWrittenByHandIsRead()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(Put(bytes));
        QTEST(Read(), "text");
    }

    void aFileChangedByAnotherProcessIsReadAgain()
    {
        WriteSetting(Application, Section, Key, QStringLiteral("1"));
        QVERIFY(Put("[IOSetting]\nIOType=changed outside\n"));
        QCOMPARE(Read(), QStringLiteral("changed outside"));
    }

    void aDamagedFileIsRefusedAndLeftAsItIs_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("no key") << QByteArray("[IOSetting]\nIOType=1\nthis is no store\n");
        QTest::newRow("open section") << QByteArray("[IOSetting\nIOType=1\n");
        QTest::newRow("zeros") << QByteArray(512, '\0');
        QTest::newRow("zeros behind") << QByteArray("[IOSetting]\nIOType=1").append(64, '\0');
        QTest::newRow("no UTF-8") << QByteArray("[IOSetting]\nIOType=1\nName=\xD6\xD0\n");
        QTest::newRow("another section") << QByteArray("[IOSetting]\nIOType=1\n[RS232]\nPort\n");
    }
    void aDamagedFileIsRefusedAndLeftAsItIs()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(Put(bytes));
        for (int time = 0; time < 2; ++time) {
            QCOMPARE(ErrorOf([&] { Read(); }), 13);
            QCOMPARE(ErrorOf([] { WriteSetting(Application, Section, Key, QStringLiteral("2")); }), 13);
            QVERIFY(Bytes() == bytes);
        }
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList(QStringLiteral("Ostrakon.ini")));
    }

    void aMendedFileIsReadAgain()
    {
        QVERIFY(Put("no store\n"));
        QCOMPARE(ErrorOf([&] { Read(); }), 13);
        QVERIFY(Put("[IOSetting]\nIOType=mended\n"));
        QCOMPARE(Read(), QStringLiteral("mended"));
        WriteSetting(Application, Section, Key, QStringLiteral("1"));
        QCOMPARE(Read(), QStringLiteral("1"));
    }

    void aFolderInTheFilesPlaceDeniesPermission()
    {
        QVERIFY(QDir().mkdir(StorePath()));
        QCOMPARE(ErrorOf([] { WriteSetting(Application, Section, Key, QStringLiteral("1")); }), 70);
        QCOMPARE(Read(), QStringLiteral("none"));
        QVERIFY(QFileInfo(StorePath()).isDir());
    }

    void aFileInTheFoldersPlaceDeniesPermission()
    {
        QVERIFY(Put("plain file"));
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, StorePath());
        QCOMPARE(ErrorOf([] { WriteSetting(Application, Section, Key, QStringLiteral("1")); }), 70);
        QCOMPARE(Read(), QStringLiteral("none"));
        QCOMPARE(Bytes(), QByteArray("plain file"));
    }

    void aReadOnlyFileDeniesPermission()
    {
        const QByteArray bytes("[IOSetting]\nIOType=1\n");
        QVERIFY(Put(bytes));
        QVERIFY(QFile::setPermissions(StorePath(), ReadOnlyFile));
        QVERIFY(QFile::setPermissions(m_folder->path(), ReadOnlyFolder));
        const UserWithoutRights user;
        QVERIFY(user.IsBound());
        QCOMPARE(ErrorOf([] { WriteSetting(Application, Section, Key, QStringLiteral("2")); }), 70);
        QCOMPARE(Read(), QStringLiteral("1"));
        QVERIFY(Bytes() == bytes);
    }

    void aReadOnlyFolderWithoutAFileDeniesPermission()
    {
        QVERIFY(QFile::setPermissions(m_folder->path(), ReadOnlyFolder));
        const UserWithoutRights user;
        QVERIFY(user.IsBound());
        QCOMPARE(ErrorOf([] { WriteSetting(Application, Section, Key, QStringLiteral("2")); }), 70);
        QCOMPARE(Read(), QStringLiteral("none"));
        QVERIFY(!QFile::exists(StorePath()));
    }

    /// The file could be written, but the folder does not let it be replaced.
    void aValueThatCouldNotBeStoredIsNotShownLater()
    {
        const QByteArray bytes("[IOSetting]\nIOType=1\n");
        QVERIFY(Put(bytes));
        QVERIFY(QFile::setPermissions(StorePath(), OpenFile));
        QVERIFY(QFile::setPermissions(m_folder->path(), ReadOnlyFolder));
        const UserWithoutRights user;
        QVERIFY(user.IsBound());
        const QString fresh = QStringLiteral("Fresh");
        QCOMPARE(ErrorOf([] { WriteSetting(Application, Section, Key, QStringLiteral("2")); }), 70);
        QCOMPARE(ErrorOf([&] { WriteSetting(Application, Section, fresh, QStringLiteral("2")); }), 70);
        QCOMPARE(Read(), QStringLiteral("1"));
        QCOMPARE(ReadSetting(Application, Section, fresh, QStringLiteral("none")), QStringLiteral("none"));
        QVERIFY(Bytes() == bytes);
    }
};

QTEST_GUILESS_MAIN(TestSettingsStore)
#include "tst_settings_store.moc"

/// @file
/// The mark of the running instance: within one process, between two, and left behind by one that was killed. The test
/// program itself is the second process, see main.

#include "platform/SingleInstance.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QtTest>

#include <memory>

namespace {

const QString Mark = QStringLiteral("ostrakon-test");
const QString HoldArgument = QStringLiteral("--hold-the-mark");

/// Takes the mark, tells whether it was free, and keeps it until its input ends.
int HoldTheMark()
{
    const SingleInstance instance(Mark);
    QTextStream(stdout) << (instance.IsOnly() ? "only\n" : "second\n") << Qt::flush;
    QTextStream(stdin).readAll();
    return 0;
}

} // namespace

class TestSingleInstance : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    /// Starts the other process. @return what it tells
    static QByteArray StartOther(QProcess &other)
    {
        other.start(QCoreApplication::applicationFilePath(), {HoldArgument});
        return other.waitForReadyRead(20000) ? other.readLine().trimmed() : QByteArray("silent");
    }

    static bool EndOther(QProcess &other)
    {
        other.closeWriteChannel();
        return other.waitForFinished(20000) && other.exitCode() == 0;
    }

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>(); // of mode 0700, as a runtime folder must be
        QVERIFY(m_folder->isValid());
        qputenv("XDG_RUNTIME_DIR", m_folder->path().toLocal8Bit());
    }

    void theFirstIsTheOnlyOne()
    {
        const SingleInstance first(Mark);
        QVERIFY(first.IsOnly());
        QVERIFY(QFile::exists(m_folder->filePath(QStringLiteral("ostrakon-test.lock"))));
    }

    void aSecondInTheSameProcessIsNot()
    {
        const SingleInstance first(Mark);
        const SingleInstance second(Mark);
        QVERIFY(first.IsOnly());
        QVERIFY(!second.IsOnly());
    }

    void aSecondTakesNothingFromTheFirst()
    {
        const SingleInstance first(Mark);
        {
            const SingleInstance second(Mark);
            QVERIFY(!second.IsOnly());
        }
        const SingleInstance third(Mark);
        QVERIFY(!third.IsOnly());
    }

    void theMarkIsFreeAgainAfterTheFirst()
    {
        {
            const SingleInstance first(Mark);
            QVERIFY(first.IsOnly());
        }
        const SingleInstance second(Mark);
        QVERIFY(second.IsOnly());
    }

    void anotherNameIsAnotherMark()
    {
        const SingleInstance first(Mark);
        const SingleInstance other(QStringLiteral("another-program"));
        QVERIFY(other.IsOnly());
    }

    void anotherProcessIsNoticed()
    {
        QProcess other;
        QCOMPARE(StartOther(other), QByteArray("only"));
        {
            const SingleInstance here(Mark);
            QVERIFY(!here.IsOnly());
        }
        QVERIFY(EndOther(other));
        const SingleInstance after(Mark);
        QVERIFY(after.IsOnly());
    }

    void anotherProcessNoticesThisOne()
    {
        const SingleInstance here(Mark);
        QProcess other;
        QCOMPARE(StartOther(other), QByteArray("second"));
        QVERIFY(EndOther(other));
        const SingleInstance again(Mark);
        QVERIFY(!again.IsOnly());
    }

    void theMarkOfAKilledProcessDoesNotCount()
    {
        QProcess other;
        QCOMPARE(StartOther(other), QByteArray("only"));
        other.kill();
        QVERIFY(other.waitForFinished(20000));
        QCOMPARE(other.exitStatus(), QProcess::CrashExit);
        QVERIFY(QFile::exists(m_folder->filePath(QStringLiteral("ostrakon-test.lock"))));
        const SingleInstance after(Mark);
        QVERIFY(after.IsOnly());
    }

    void aMarkThatCannotBeMadeKeepsNobodyOut()
    {
        const SingleInstance instance(QStringLiteral("no-such-folder/ostrakon-test"));
        QVERIFY(instance.IsOnly());
    }
};

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    if (QCoreApplication::arguments().contains(HoldArgument))
        return HoldTheMark();
    TestSingleInstance test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_single_instance.moc"

#include "temp_folder.h"

#include <QProcess>
#include <QTest>

#include <filesystem>

using test_support::TempFolder;

namespace {

struct Ending
{
    int status;
    QString output;
};

/// Runs a shell command with the program's path as $1 and waits for its end.
Ending run(const std::string& command, const std::filesystem::path& program)
{
    QProcess shell;
    shell.setStandardErrorFile(QProcess::nullDevice());
    shell.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QString::fromStdString(command),
                                            QStringLiteral("sh"), QString::fromStdString(program.string())});
    if (!shell.waitForFinished(60000) || shell.exitStatus() != QProcess::NormalExit)
        return {-1, QStringLiteral("did not end")};
    return {shell.exitCode(), QString::fromUtf8(shell.readAllStandardOutput())};
}

Ending run(const char* task) { return run(std::string("\"$1\" ") + task, MAIN_PROBE); }

/// The folder where the program looks for its modules if it is started by this command.
QString directorySeen(const std::string& command, const std::filesystem::path& program)
{
    return run(command, program).output.section(u'\n', 0, 0);
}

} // namespace

/// The program's main function with another window: exceptions, exit status, directory.
class ProgramTest : public QObject
{
    Q_OBJECT

private slots:
    void closingTheLastWindowEndsWith0();
    void statusIsThatOfTheEventLoop();
    void exceptionOfTheConstructorIsWritten();
    void otherExceptionOfTheConstructorIsUnknown();
    void exceptionOfAHandlerIsWrittenAfterTheWindowIsGone();
    void otherExceptionOfAHandlerIsUnknown();
    void directoryIsThatOfTheFullPath();
    void directoryIsThatOfTheLink();
    void directoryIsRelativeAsTyped();
    void directoryIsEmptyForAProgramOnThePath();
};

void ProgramTest::closingTheLastWindowEndsWith0()
{
    const Ending ending = run("close");
    QCOMPARE(ending.output, QStringLiteral("shown\nwindow gone\n"));
    QCOMPARE(ending.status, 0);
}

void ProgramTest::statusIsThatOfTheEventLoop() { QCOMPARE(run("exit-5").status, 5); }

void ProgramTest::exceptionOfTheConstructorIsWritten()
{
    const Ending ending = run("throw");
    QCOMPARE(ending.output, QStringLiteral("Main exception: the reason\n"));
    QCOMPARE(ending.status, 0);
}

void ProgramTest::otherExceptionOfTheConstructorIsUnknown()
{
    const Ending ending = run("throw-int");
    QCOMPARE(ending.output, QStringLiteral("Main exception: UNKNOWN\n"));
    QCOMPARE(ending.status, 0);
}

void ProgramTest::exceptionOfAHandlerIsWrittenAfterTheWindowIsGone()
{
    const Ending ending = run("throw-in-handler");
    QCOMPARE(ending.output, QStringLiteral("window gone\nMain exception: first reason\n"));
    QCOMPARE(ending.status, 0);
}

void ProgramTest::otherExceptionOfAHandlerIsUnknown()
{
    const Ending ending = run("throw-int-in-handler");
    QCOMPARE(ending.output, QStringLiteral("window gone\nMain exception: UNKNOWN\n"));
    QCOMPARE(ending.status, 0);
}

void ProgramTest::directoryIsThatOfTheFullPath()
{
    const TempFolder folder;
    std::filesystem::create_directories(folder.file("Читалня"));
    const std::string program = folder.file("Читалня/програма");
    std::filesystem::copy_file(MAIN_PROBE, program);
    QCOMPARE(directorySeen("\"$1\" directory", program),
             QString::fromStdString("[" + folder.file("Читалня") + "]"));
}

void ProgramTest::directoryIsThatOfTheLink()
{
    const TempFolder folder;
    std::filesystem::create_symlink(MAIN_PROBE, folder.file("link"));
    QCOMPARE(directorySeen("\"$1\" directory", folder.file("link")),
             QString::fromStdString("[" + folder.path().string() + "]"));
}

void ProgramTest::directoryIsRelativeAsTyped()
{
    const TempFolder folder;
    std::filesystem::create_directories(folder.file("a/b"));
    std::filesystem::create_symlink(MAIN_PROBE, folder.file("a/b/link"));
    QCOMPARE(directorySeen("cd \"$1\" && a/b/link directory", folder.path()), QStringLiteral("[a/b]"));
    QCOMPARE(directorySeen("cd \"$1/a/b\" && ./link directory", folder.path()), QStringLiteral("[.]"));
}

void ProgramTest::directoryIsEmptyForAProgramOnThePath()
{
    const TempFolder folder;
    std::filesystem::create_symlink(MAIN_PROBE, folder.file("link"));
    QCOMPARE(directorySeen("PATH=\"$1:$PATH\" && link directory", folder.path()), QStringLiteral("[]"));
}

QTEST_GUILESS_MAIN(ProgramTest)
#include "program_test.moc"

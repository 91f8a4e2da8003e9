#include <QProcess>
#include <QTest>

namespace {

struct Ending
{
    int status;
    QString output;
    QString error;
};

/// Runs the program, with a window that closes itself, in an environment with these variables and no other
/// display.
Ending run(const QStringList& variables, const QStringList& arguments = {QStringLiteral("close")})
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_SESSION_TYPE", "LC_ALL",
                             "LC_MESSAGES", "LANG", "LANGUAGE"})
        environment.remove(QString::fromLatin1(name));
    for (const QString& variable : variables)
        environment.insert(variable.section(u'=', 0, 0), variable.section(u'=', 1));
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(MAIN_PROBE), arguments);
    if (!program.waitForFinished(60000) || program.exitStatus() != QProcess::NormalExit)
        return {-1, QStringLiteral("did not end by itself"),
                QString::fromUtf8(program.readAllStandardError())};
    return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
}

QStringList words(const char* text) { return QString::fromUtf8(text).split(u' ', Qt::SkipEmptyParts); }

} // namespace

/// The program if no window can be opened.
class NoDisplayTest : public QObject
{
    Q_OBJECT

private slots:
    void sentenceSaysWhatIsWrong_data();
    void sentenceSaysWhatIsWrong();
    void platformsWithoutADisplayWork_data();
    void platformsWithoutADisplayWork();
    void otherMessagesOfTheStartAreWritten();
};

void NoDisplayTest::sentenceSaysWhatIsWrong_data()
{
    QTest::addColumn<QString>("variables");
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char* name, const char* variables, const char* arguments,
                        const char* sentence) {
        QTest::newRow(name) << QString::fromUtf8(variables) << QString::fromUtf8(arguments)
                            << QString::fromUtf8(sentence);
    };
    const char* none =
        "no window can be opened: there is no graphical display here; start the program from a "
        "desktop session.";
    const char* noneBg = "не може да се отвори прозорец: тук няма графичен екран; стартирайте програмата от "
                         "графична среда.";
    row("none", "", "", none);
    row("none, in English", "LANG=en_US.UTF-8", "", none);
    row("none, in Bulgarian", "LANG=bg_BG.UTF-8", "", noneBg);
    row("LC_ALL before LANG", "LC_ALL=en_US.UTF-8 LANG=bg_BG.UTF-8", "", none);
    row("LC_MESSAGES before LANG", "LC_MESSAGES=bg_BG LANG=en_US.UTF-8", "", noneBg);
    row("LANGUAGE before the locale", "LANG=en_US.UTF-8 LANGUAGE=bg:en", "", noneBg);
    row("LANGUAGE without a locale", "LC_ALL=C.UTF-8 LANGUAGE=bg", "", none);
    row("empty variables", "DISPLAY= WAYLAND_DISPLAY= QT_QPA_PLATFORM=", "", none);
    row("nowhere", "DISPLAY=:7654", "",
        "no window can be opened: the display cannot be reached (DISPLAY=:7654).");
    row("nowhere, in Bulgarian", "DISPLAY=:7654 LANG=bg_BG.UTF-8", "",
        "не може да се отвори прозорец: няма връзка с екрана (DISPLAY=:7654).");
    row("no name of a display", "DISPLAY=нищо", "",
        "no window can be opened: the display cannot be reached (DISPLAY=нищо).");
    row("Wayland nowhere", "WAYLAND_DISPLAY=wayland-9 XDG_SESSION_TYPE=wayland", "",
        "no window can be opened: the display cannot be reached (WAYLAND_DISPLAY=wayland-9).");
    row("both nowhere", "WAYLAND_DISPLAY=wayland-9 DISPLAY=:7654", "",
        "no window can be opened: the display cannot be reached (WAYLAND_DISPLAY=wayland-9, DISPLAY=:7654).");
    row("unknown platform", "QT_QPA_PLATFORM=nonsense", "",
        "no window can be opened: the platform \"nonsense\" that was asked for does not work here.");
    row("unknown platform, in Bulgarian", "QT_QPA_PLATFORM=nonsense LANG=bg_BG.UTF-8", "",
        "не може да се отвори прозорец: платформата „nonsense“, която е поискана, не работи тук.");
    row("platform without its display", "QT_QPA_PLATFORM=xcb", "",
        "no window can be opened: the platform \"xcb\" that was asked for does not work here.");
    row("platform as an argument", "QT_QPA_PLATFORM=offscreen", "-platform nonsense",
        "no window can be opened: the platform \"nonsense\" that was asked for does not work here.");
    row("platform that starts without a screen", "QT_QPA_PLATFORM=linuxfb:fb=/dev/null", "",
        "no window can be opened: the platform \"linuxfb:fb=/dev/null\" that was asked for does not work "
        "here.");
}

void NoDisplayTest::sentenceSaysWhatIsWrong()
{
    QFETCH(QString, variables);
    QFETCH(QString, arguments);
    QFETCH(QString, sentence);
    const Ending ending = run(words(variables.toUtf8().constData()), words(arguments.toUtf8().constData()));
    QCOMPARE(ending.error, QStringLiteral("window_main_probe: ") + sentence + u'\n');
    QCOMPARE(ending.output, QString());
    QCOMPARE(ending.status, 1);
}

void NoDisplayTest::platformsWithoutADisplayWork_data()
{
    QTest::addColumn<QString>("variables");
    QTest::addColumn<QString>("arguments");
    QTest::newRow("offscreen") << QStringLiteral("QT_QPA_PLATFORM=offscreen") << QString();
    QTest::newRow("minimal") << QStringLiteral("QT_QPA_PLATFORM=minimal") << QString();
    QTest::newRow("the first that works") << QStringLiteral("QT_QPA_PLATFORM=xcb;offscreen") << QString();
    QTest::newRow("argument") << QStringLiteral("QT_QPA_PLATFORM=nonsense")
                              << QStringLiteral("-platform offscreen");
    QTest::newRow("display nowhere") << QStringLiteral("QT_QPA_PLATFORM=offscreen DISPLAY=:7654")
                                     << QString();
}

void NoDisplayTest::platformsWithoutADisplayWork()
{
    QFETCH(QString, variables);
    QFETCH(QString, arguments);
    const QStringList close = words(arguments.toUtf8().constData()) + QStringList{QStringLiteral("close")};
    const Ending ending = run(words(variables.toUtf8().constData()), close);
    QCOMPARE(ending.output, QStringLiteral("shown\nwindow gone\n"));
    QCOMPARE(ending.status, 0);
}

/// The toolkit's messages about a platform that it skips are still written if another one works.
void NoDisplayTest::otherMessagesOfTheStartAreWritten()
{
    const Ending ending = run({QStringLiteral("QT_QPA_PLATFORM=nonsense;offscreen")});
    QVERIFY2(ending.error.contains(QStringLiteral("nonsense")), qPrintable(ending.error));
    QCOMPARE(ending.status, 0);
}

QTEST_GUILESS_MAIN(NoDisplayTest)
#include "no_display_test.moc"

#include "test_listing.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <stdexcept>

namespace conformance {

namespace {

/// The standard output of a program, whatever its exit status.
QByteArray outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    process.waitForFinished(-1);
    return process.readAllStandardOutput();
}

QStringList functionsOf(const QString& program)
{
    QStringList functions;
    for (const QByteArray& line : outputOf(program, {QStringLiteral("-functions")}).split('\n'))
        if (line.endsWith("()"))
            functions.append(QString::fromUtf8(line.chopped(2)));
    if (functions.isEmpty())
        throw std::runtime_error(program.toStdString() + " lists no function");
    return functions;
}

QStringList stringsOf(const QJsonArray& array)
{
    QStringList strings;
    for (const QJsonValue& value : array)
        strings.append(value.toString());
    return strings;
}

/// Whether a command runs a program that uses Qt Test, as in the areas with a user interface.
bool isQtTest(const QString& program)
{
    return program.startsWith(QLatin1String("qt3_")) || program.startsWith(QLatin1String("window_"));
}

void add(Tests& tests, const std::string& name, const QStringList& command, bool isWhole)
{
    const QString program = QFileInfo(command.value(0)).fileName();
    std::set<std::string>& names = tests[program.toStdString()];
    if (isWhole || !isQtTest(program)) {
        names.insert(name);
        return;
    }
    const QStringList functions = command.size() > 1 ? command.mid(1) : functionsOf(command.first());
    for (const QString& function : functions) // "function" or "function:row"
        names.insert((program + u':' + function.section(u':', 0, 0)).toStdString());
}

} // namespace

Tests testsOf(const std::string& ctest, const std::string& buildFolder,
              const std::set<std::string>& wholeTests)
{
    const QByteArray answer = outputOf(QString::fromStdString(ctest),
                                       {QStringLiteral("--show-only=json-v1"), QStringLiteral("--test-dir"),
                                        QString::fromStdString(buildFolder)});
    const QJsonArray listed =
        QJsonDocument::fromJson(answer).object().value(QLatin1String("tests")).toArray();
    if (listed.isEmpty())
        throw std::runtime_error("CTest lists no tests in " + buildFolder);
    Tests tests;
    for (const QJsonValue& test : listed) {
        const std::string name = test[QLatin1String("name")].toString().toStdString();
        add(tests, name, stringsOf(test[QLatin1String("command")].toArray()), wholeTests.count(name) > 0);
    }
    return tests;
}

} // namespace conformance

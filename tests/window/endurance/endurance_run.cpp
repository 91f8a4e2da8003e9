// A long session in a real window without a display: actions that a seed determines, and after each the
// window compared with the model, the open files counted, and at intervals the objects and the memory.

#include "application.h"
#include "damaged_reading.h"
#include "sanitized.h"
#include "user.h"

#include <QTest>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <unistd.h>

namespace {

using namespace endurance;

constexpr int filesOfATranslation = 4;    // text, its places, concordance, its places
constexpr unsigned int measuredEach = 50; // actions
constexpr qsizetype told = 12;            // last actions, of a session that failed

constexpr bool memoryIsMeasured = !test_support::isSanitized; // else what is freed is kept

/// In MiB.
double residentMemory()
{
    long pages = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return static_cast<double>(resident) * static_cast<double>(::sysconf(_SC_PAGESIZE)) / (1 << 20);
}

/// The files that are open. Other descriptors come and go with the threads in which the toolkit paints.
QStringList openFiles()
{
    QStringList files;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code closedMeanwhile;
        const std::filesystem::path file = std::filesystem::read_symlink(entry.path(), closedMeanwhile);
        if (file.is_absolute() && !file.string().ends_with("/fd")) // not the listing itself
            files.append(QString::fromStdString(file.string()));
    }
    return files;
}

/// The highest values of a part of the session.
struct Level
{
    qsizetype objects = 0;
    double memory = 0;

    void measure(const BibleForm& form)
    {
        objects = std::max(objects, form.findChildren<QObject*>().size() + QApplication::allWidgets().size());
        memory = std::max(memory, residentMemory());
    }
};

struct Session
{
    unsigned int seed = 0;
    unsigned int actions = 0; ///< done
    Level firstHalf, secondHalf;
    QString defect;
};

/// What is wrong after an action; empty if nothing is.
QString defectAfter(User& user, const Model& model, qsizetype filesBefore)
{
    if (const QString exception = window_test::DamagedReading::slotException(); !exception.isEmpty())
        return QStringLiteral("exception out of a slot: ") + exception;
    if (const QString difference = user.seen().differenceFrom(model.seen()); !difference.isEmpty())
        return difference;
    const QStringList files = openFiles();
    if (const qsizetype expected = filesBefore + filesOfATranslation * model.tabCount();
        files.size() != expected)
        return QStringLiteral("%1 files are open, expected %2: %3")
            .arg(files.size())
            .arg(expected)
            .arg(files.join(u' '));
    return {};
}

void checkLevels(Session& session)
{
    constexpr double tolerated = 8;   // MiB
    constexpr qsizetype madeLate = 5; // objects of a dialog or a list that was first opened late
    if (session.secondHalf.objects > session.firstHalf.objects + madeLate)
        session.defect = QStringLiteral("objects grow from %1 to %2")
                             .arg(session.firstHalf.objects)
                             .arg(session.secondHalf.objects);
    else if (memoryIsMeasured && session.secondHalf.memory > session.firstHalf.memory * 1.1 + tolerated)
        session.defect = QStringLiteral("memory grows from %1 MiB to %2 MiB")
                             .arg(session.firstHalf.memory)
                             .arg(session.secondHalf.memory);
}

void useWindow(window_test::FormFixture& window, Session& session, unsigned int actionCount)
{
    test_support::Random random(session.seed);
    Model model(translations(), QString::fromStdString(window.modulesPath()));
    for (int n = 0; n < translations().size(); ++n)
        window.install(std::to_string(n), translations()[n].files());
    const BibleForm& form = window.open();
    const qsizetype filesBefore = openFiles().size() - filesOfATranslation; // the toolkit's own
    User user(window, model, random);
    model.chooseInMenu(0);
    model.chooseBook(0);
    session.defect = defectAfter(user, model, filesBefore);
    QStringList log;
    while (session.defect.isEmpty() && session.actions < actionCount) {
        log.append(user.act());
        session.defect = defectAfter(user, model, filesBefore);
        if (!session.defect.isEmpty())
            session.defect.prepend(QStringLiteral("after\n") + log.mid(log.size() - told).join(u'\n') +
                                   QStringLiteral("\nthe "));
        ++session.actions;
        if (session.actions % measuredEach == 0)
            (session.actions <= actionCount / 2 ? session.firstHalf : session.secondHalf).measure(form);
    }
    if (session.defect.isEmpty())
        checkLevels(session);
    window.closeForm();
    if (session.defect.isEmpty() && openFiles().size() != filesBefore)
        session.defect = QStringLiteral("files stay open after the window was closed");
}

void writeReport(const std::string& file, const std::vector<Session>& sessions)
{
    std::ofstream out(file);
    out << "## Endurance\n\n"
           "A window is used by mouse and keyboard with actions chosen at random: translations opened and "
           "closed from\n"
           "the menu, tabs, the location boxes, links, searches and their hits, panels, fonts, sizes; some "
           "of the\n"
           "translations are damaged. After each action the page, the marked verse, the boxes, tabs, check "
           "marks, words,\n"
           "hits and message boxes are compared with a model that shares no code with the window, and the "
           "open files are\n"
           "counted: four for each open translation. The highest memory (resident) and number of objects of "
           "the first\n"
           "half and of the second half show whether they grow.\n\n"
           "    window_endurance_run --report doc/quality/endurance.md ACTIONS SEED...\n\n"
           "| Seed | Actions | Result | Objects, first half | second half | MiB, first half | second half |\n"
           "|---|---|---|---|---|---|---|\n";
    out.precision(1);
    out << std::fixed;
    for (const Session& session : sessions)
        out << "| " << session.seed << " | " << session.actions << " | "
            << (session.defect.isEmpty() ? "as the model" : "failed") << " | " << session.firstHalf.objects
            << " | " << session.secondHalf.objects << " | " << session.firstHalf.memory << " | "
            << session.secondHalf.memory << " |\n";
}

} // namespace

/// [--report FILE] ACTIONS SEED...; at least 100 actions, so that both halves of a session are measured.
int main(int argc, char** argv)
{
    std::vector<std::string> arguments(argv + 1, argv + argc);
    std::string report;
    if (arguments.size() > 2 && arguments[0] == "--report") {
        report = arguments[1];
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    if (arguments.size() < 2) {
        std::cerr << "usage: " << argv[0] << " [--report FILE] ACTIONS SEED...\n";
        return 2;
    }
    qt3::Application application(argc, argv);
    std::vector<Session> sessions;
    bool asModelled = true;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        window_test::FormFixture window;
        Session session;
        session.seed = static_cast<unsigned int>(std::stoul(arguments[i]));
        useWindow(window, session, static_cast<unsigned int>(std::stoul(arguments[0])));
        std::cout << "seed " << session.seed << ": " << session.actions << " actions, objects "
                  << session.firstHalf.objects << " and " << session.secondHalf.objects << ", MiB "
                  << session.firstHalf.memory << " and " << session.secondHalf.memory << ' '
                  << session.defect.toStdString() << std::endl;
        asModelled = asModelled && session.defect.isEmpty();
        sessions.push_back(session);
    }
    if (!report.empty())
        writeReport(report, sessions);
    return asModelled ? 0 : 1;
}

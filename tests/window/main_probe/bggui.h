#pragma once

#include "ut_utils.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QTimer>

#include <iostream>
#include <stdexcept>

/// Replaces the window in tests of the program's main function: does what the first argument says and reports
/// its destruction on standard output.
class BibleForm : public QMainWindow
{
public:
    BibleForm()
    {
        const QString task = QCoreApplication::arguments().value(1);
        if (task == QLatin1String("throw"))
            throw std::runtime_error("the reason");
        if (task == QLatin1String("throw-int"))
            throw 7;
        if (task == QLatin1String("directory"))
            std::cout << "[" << ut::get_application_dirPath() << "]" << std::endl;
        QTimer::singleShot(0, this, [this, task] { run(task); });
    }
    ~BibleForm() override { std::cout << "window gone" << std::endl; }

private:
    void run(const QString& task)
    {
        if (task == QLatin1String("throw-in-handler"))
            throw std::logic_error("first reason");
        if (task == QLatin1String("throw-int-in-handler"))
            throw 7;
        if (task == QLatin1String("exit-5"))
            return QCoreApplication::exit(5);
        std::cout << (isVisible() ? "shown" : "not shown") << std::endl;
        close();
    }
};

#pragma once

#include "combo_box.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

/// A window with a box and a line edit that can take the focus; records the signals of the box in order:
/// "item 2", "text Лука".
struct ComboFixture
{
    ComboFixture()
    {
        using namespace Qt::StringLiterals;
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(box = new qt3::ComboBox);
        layout->addWidget(other = new QLineEdit);
        QObject::connect(box, &qt3::ComboBox::activatedItem, box,
                         [this](int item) { told.append(u"item %1"_s.arg(item)); });
        QObject::connect(box, &qt3::ComboBox::activatedText, box,
                         [this](const QString& text) { told.append(u"text "_s + text); });
        window.show();
        window.activateWindow();
        isShown = QTest::qWaitForWindowActive(&window);
        box->setFocus(Qt::TabFocusReason);
    }

    QString text() const { return box->currentText(); }
    void type(const QString& text)
    {
        for (const QChar character : text) {
            QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
            QApplication::sendEvent(box, &event);
        }
    }
    /// The signals since the last call.
    QStringList takeTold() { return std::exchange(told, {}); }

    QWidget window;
    qt3::ComboBox* box = nullptr;
    QLineEdit* other = nullptr;
    QStringList told;
    bool isShown = false;
};

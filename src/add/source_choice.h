#pragma once

#include <QFrame>

namespace Kedrin::Add {

/// Says how a text is chosen, and has buttons for it.
class CSourceChoice final : public QFrame
{
    Q_OBJECT

public:
    CSourceChoice();

signals:
    void chosen(const QString& path);

private:
    void chooseFile();
    void chooseFolder();
};

} // namespace Kedrin::Add

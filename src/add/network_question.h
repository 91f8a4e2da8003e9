#pragma once

#include <QFrame>

#include <functional>
#include <set>
#include <string>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
QT_END_NAMESPACE

namespace Kedrin::Add {

/// Asks whether an address of the network may be used: once, if the answer is yes. Hidden while nothing is asked.
class CNetworkQuestion final : public QFrame
{
    Q_OBJECT

public:
    CNetworkQuestion();

    /// Asks, unless that address was allowed before. A question that is still open is dropped.
    /// @param allowed  called once the answer is yes
    void ask(const std::string& address, std::function<void()> allowed);

    void focusNo();

    /// Takes the question back.
    void drop() { hide(); }

signals:
    void refused();

private:
    void allow();
    void refuse();

    QLabel* m_text;
    QPushButton* m_no;
    std::string m_address;
    std::function<void()> m_allowed;
    std::set<std::string> m_known; ///< the addresses that are allowed
};

} // namespace Kedrin::Add

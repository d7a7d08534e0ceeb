#pragma once

#include <QtCore/QDeadlineTimer>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTimer>

#include <functional>

class QWidget;

/// Stands in for the user: answers every modal dialog that opens during its life, by mouse or keyboard. Make
/// one before the call that asks.
class QuestionAnswer final : public QObject
{
public:
    /// Clicks the button with this object name.
    explicit QuestionAnswer(const QString& buttonName);
    /// Presses the key.
    explicit QuestionAnswer(Qt::Key key);
    ~QuestionAnswer() override;

    /// The texts of the labels in each answered dialog, in order.
    QStringList GetQuestions() const;
    /// The texts of the last dialog's push buttons, in their order on the screen.
    QStringList GetButtonTexts() const;

    /// Calls `before` when a dialog is open, before answering it.
    void SetBefore(std::function<void()> before);

private:
    void Look();
    void Answer(QWidget* dialog);

    QString m_buttonName;
    Qt::Key m_key = Qt::Key_unknown;
    QTimer m_timer;
    QDeadlineTimer m_patience;
    QStringList m_questions;
    QStringList m_buttonTexts;
    std::function<void()> m_before;
};

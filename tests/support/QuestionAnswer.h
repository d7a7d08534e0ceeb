#pragma once

#include <QtCore/QDeadlineTimer>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTimer>

#include <functional>

class QWidget;

/// The user in front of the client: as soon as a modal dialog stands on the screen, they answer it, by the
/// mouse or by the keyboard. Made before the call that asks; one object answers every question of its life.
class QuestionAnswer final : public QObject
{
public:
    /// Clicks the button of that object name.
    explicit QuestionAnswer(const QString& buttonName);
    /// Presses the key.
    explicit QuestionAnswer(Qt::Key key);
    ~QuestionAnswer() override;

    /// The labels' texts of each dialog that was answered, in order.
    QStringList GetQuestions() const;
    /// The texts of the last dialog's push buttons, in the order in which they stand.
    QStringList GetButtonTexts() const;

    /// Called when a dialog stands, before it is answered.
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

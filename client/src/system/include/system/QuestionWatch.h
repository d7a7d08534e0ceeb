#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

class QDialog;

/// Watches the question boxes that modules show, and how the user answers them. GUI thread.
class QuestionWatch final : public QObject
{
    Q_OBJECT

public:
    explicit QuestionWatch(QObject* parent = nullptr);
    ~QuestionWatch() override;

Q_SIGNALS:
    void SigAsked(const QString& text);
    /// `answer` is the name of a standard button, such as "Yes".
    void SigAnswered(const QString& text, const QString& answer);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void HandleQuestion(QDialog* dialog);
};

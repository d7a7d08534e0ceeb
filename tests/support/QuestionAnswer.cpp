#include "QuestionAnswer.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::milliseconds LookEvery(5);
constexpr std::chrono::seconds Patience(20);

} // namespace

QuestionAnswer::QuestionAnswer(const QString& buttonName) : m_buttonName(buttonName), m_patience(Patience)
{
    connect(&m_timer, &QTimer::timeout, this, &QuestionAnswer::Look);
    m_timer.start(LookEvery);
}

QuestionAnswer::QuestionAnswer(Qt::Key key) : QuestionAnswer(QString())
{
    m_key = key;
}

QuestionAnswer::~QuestionAnswer() = default;

QStringList QuestionAnswer::GetQuestions() const
{
    return m_questions;
}

QStringList QuestionAnswer::GetButtonTexts() const
{
    return m_buttonTexts;
}

void QuestionAnswer::SetBefore(std::function<void()> before)
{
    m_before = std::move(before);
}

void QuestionAnswer::Look()
{
    QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog) {
        return;
    }
    if (m_patience.hasExpired()) { // so that the test ends
        ADD_FAILURE() << "the dialog cannot be answered";
        dialog->close();
        return;
    }
    if (dialog->isVisible() && dialog->windowHandle() && dialog->windowHandle()->isExposed()) {
        Answer(dialog);
    }
}

void QuestionAnswer::Answer(QWidget* dialog)
{
    QStringList texts;
    const QList<QLabel*> labels = dialog->findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        if (!label->text().isEmpty()) {
            texts.append(label->text());
        }
    }
    QList<QPushButton*> buttons = dialog->findChildren<QPushButton*>();
    const auto stands = [dialog](const QPushButton* button) { return button->mapTo(dialog, QPoint()).x(); };
    std::sort(buttons.begin(), buttons.end(),
              [&stands](const QPushButton* a, const QPushButton* b) { return stands(a) < stands(b); });
    QPushButton* wanted = nullptr;
    m_buttonTexts.clear();
    for (QPushButton* button : qAsConst(buttons)) {
        m_buttonTexts.append(button->text());
        if (!m_buttonName.isEmpty() && button->objectName() == m_buttonName) {
            wanted = button;
        }
    }
    if (m_key == Qt::Key_unknown && !wanted) {
        ADD_FAILURE() << "the dialog has no button " << qUtf8Printable(m_buttonName);
        dialog->close();
        return;
    }
    m_questions.append(texts.join(QLatin1Char('\n')));
    if (m_before) {
        m_before();
    }
    if (wanted) {
        QTest::mouseClick(wanted, Qt::LeftButton);
    } else {
        QWidget* focus = dialog->focusWidget();
        QTest::keyClick(focus ? focus : dialog, m_key);
    }
}

#pragma once

#include "base-ui/TLBaseDialog.h"
#include "base-ui/TextStyle.h"

#include <QtCore/QList>
#include <QtCore/QStringList>
#include <QtWidgets/QMessageBox>

class QHBoxLayout;
class QLabel;
class TLPushButton;

/// The dialog behind `PackagedMsgBox`.
class MessageDialog final : public TLBaseDialog
{
    Q_OBJECT

public:
    MessageDialog(const QString& text, QMessageBox::StandardButtons buttons, const QStringList& buttonTexts,
                  TextStyle style, QWidget* parent);
    ~MessageDialog() override;

    /// The answer for Escape until the user presses a button.
    QMessageBox::StandardButton GetAnswer() const noexcept;

    static QMessageBox::StandardButton GetEscapeAnswer(QMessageBox::StandardButtons buttons);

    void AdjustForDpi() override;
    /// For Escape, and when the dialog is closed. The dialog's result is always a standard button.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Choice
    {
        QMessageBox::StandardButton answer;
        TLPushButton* button;
        QString text; ///< empty: the button's own
    };

    void AddButton(QMessageBox::StandardButton answer, const QString& text);
    void AdjustAroundCentre();
    void Retranslate();
    void MoveFocus(QObject* from, int step);

    QList<Choice> m_choices;
    QMessageBox::StandardButton m_answer;
    QLabel* m_label;
    QHBoxLayout* m_buttonLayout;
};

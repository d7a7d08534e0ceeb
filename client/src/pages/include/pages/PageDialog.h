#pragma once

#include "base/IDpiAdapter.h"

#include <QtCore/QUrl>
#include <QtWidgets/QDialog>

class QCheckBox;
class QDialogButtonBox;
class QLineEdit;

/// What a page says or asks through alert, confirm, prompt and when it is left, or a site before it shows
/// one, clearly said to come from there and never shown as marked-up text.
class PageDialog final : public QDialog, public IDpiAdapter
{
    Q_OBJECT

public:
    enum class Kind
    {
        Alert,
        Confirm,
        Prompt,
        LogIn, // for a user name and a password
        Leave  // the page for another, although it does not want to be left
    };

    /// `text`: for a log-in, what the site calls itself; may be empty, and for `Leave` is not shown.
    /// `proposal`: for a prompt. `offerSilence`: with a box to tick against more of it.
    PageDialog(Kind kind, const QUrl& origin, const QString& text, const QString& proposal, bool offerSilence,
               QWidget* parent = nullptr);

    /// The answer, or the user name.
    QString GetInput() const;
    QString GetPassword() const;
    bool IsSilenceWanted() const;

    void AdjustForDpi() override;

private:
    QLineEdit* m_input = nullptr;
    QLineEdit* m_password = nullptr;
    QCheckBox* m_silence = nullptr;
    QDialogButtonBox* m_buttons;
};

#pragma once

#include "base/IDpiAdapter.h"

#include <QtCore/QUrl>
#include <QtWidgets/QDialog>

class QCheckBox;
class QDialogButtonBox;
class QLineEdit;
class QVBoxLayout;

/// What a page says or asks through alert, confirm, prompt and when it is left, or a site before it shows
/// one. The dialog names the host that it comes from, and shows it as plain text.
class PageDialog final : public QDialog, public IDpiAdapter
{
    Q_OBJECT

public:
    enum class Kind
    {
        Alert,
        Confirm,
        Prompt,
        LogIn, ///< asks for a user name and a password
        Leave  ///< asks whether to leave a page that may lose something
    };

    /// `text`: for a log-in, what the site calls itself, which may be empty; `Leave` does not show it.
    /// `proposal`: for a prompt. `offerSilence`: with a box that stops the page from showing more; a log-in
    /// has none.
    PageDialog(Kind kind, const QUrl& origin, const QString& text, const QString& proposal, bool offerSilence,
               QWidget* parent = nullptr);

    /// The answer, or the user name.
    QString GetInput() const;
    QString GetPassword() const;
    bool IsSilenceWanted() const;

    void AdjustForDpi() override;

private:
    void AddTexts(const QString& head, const QString& text);
    void AddInput(const QString& name, const QString& proposal);
    /// With a warning where the password would not be encrypted.
    void AddPassword(bool isEncrypted);
    void AddSilence(bool isOffered);
    /// Without a second button where `reject` is empty.
    void AddButtons(const QString& accept, const QString& reject);

    QVBoxLayout* m_column;
    QLineEdit* m_input = nullptr;
    QLineEdit* m_password = nullptr;
    QCheckBox* m_silence = nullptr;
    QDialogButtonBox* m_buttons = nullptr;
};

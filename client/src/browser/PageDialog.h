#pragma once

#include "base/IDpiAdapter.h"

#include <QtCore/QUrl>
#include <QtWidgets/QDialog>

class QCheckBox;
class QDialogButtonBox;
class QLineEdit;

/// What a page says or asks through alert, confirm and prompt, clearly said to come from that page and
/// never shown as marked-up text.
class PageDialog final : public QDialog, public IDpiAdapter
{
    Q_OBJECT

public:
    enum class Kind
    {
        Alert,
        Confirm,
        Prompt
    };

    /// `offerSilence`: with a box to tick against more of it.
    PageDialog(Kind kind, const QUrl& origin, const QString& text, const QString& proposal, bool offerSilence,
               QWidget* parent = nullptr);

    QString GetInput() const;
    bool IsSilenceWanted() const;

    void AdjustForDpi() override;

private:
    QLineEdit* m_input = nullptr;
    QCheckBox* m_silence = nullptr;
    QDialogButtonBox* m_buttons;
};

#pragma once

#include "Security.h"

#include "base/IDpiAdapter.h"

#include <QtCore/QUrl>
#include <QtWidgets/QLineEdit>

class QToolButton;

/// Where addresses are shown and typed. While the user types, changes of the page leave the text alone.
class AddressBar final : public QLineEdit, public IDpiAdapter
{
    Q_OBJECT

public:
    explicit AddressBar(QWidget* parent = nullptr);

    void SetAddress(const QUrl& url, Security security);
    /// Selects everything, ready for typing.
    void StartTyping();

    void AdjustForDpi() override;

Q_SIGNALS:
    void SigEntered(const QString& text);

protected:
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ShowAddress();
    void Retranslate();
    void PlaceSecurity();

    QUrl m_url;
    Security m_security = Security::None;
    QToolButton* m_securitySign;
    bool m_typing = false;
    bool m_selectOnRelease = false;
};

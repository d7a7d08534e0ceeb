#include "AddressBar.h"

#include "look/Scaled.h"
#include "look/SymbolicIcon.h"
#include "pages/AddressInput.h"

#include <QtCore/QEvent>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolButton>

namespace {

constexpr int Height = 36;   // [px]
constexpr int SignSize = 16; // of the security sign [px]
constexpr int SignEdge = 4;  // around the security sign [px]

} // namespace

AddressBar::AddressBar(QWidget* parent) : QLineEdit(parent), m_securitySign(new QToolButton(this))
{
    setObjectName(QStringLiteral("address_bar"));
    setDragEnabled(true);
    m_securitySign->setObjectName(QStringLiteral("security_sign"));
    m_securitySign->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_securitySign->setFocusPolicy(Qt::NoFocus);
    m_securitySign->setCursor(Qt::ArrowCursor);
    m_securitySign->setAutoRaise(true);
    connect(this, &QLineEdit::returnPressed, this, [this] {
        m_typing = false;
        Q_EMIT SigEntered(text());
    });
    connect(this, &QLineEdit::textEdited, this, [this] { m_typing = true; });
    AddressBar::AdjustForDpi();
    Retranslate();
}

void AddressBar::SetAddress(const QUrl& url, Security security)
{
    const bool changed = url != m_url;
    m_url = url;
    m_security = security;
    if (!m_typing || (changed && !hasFocus())) {
        ShowAddress();
    }
    Retranslate();
}

void AddressBar::StartTyping()
{
    setFocus(Qt::ShortcutFocusReason);
    selectAll();
}

void AddressBar::AdjustForDpi()
{
    setFixedHeight(Scaled(Height));
    m_securitySign->setIconSize(ScaledSquare(SignSize));
    PlaceSecurity();
}

void AddressBar::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    } else if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange) {
        PlaceSecurity();
    }
}

void AddressBar::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    m_selectOnRelease = event->reason() == Qt::MouseFocusReason;
    PlaceSecurity();
}

void AddressBar::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason) {
        return;
    }
    if (!m_typing) {
        deselect();
        setCursorPosition(0);
    }
}

void AddressBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        ShowAddress();
        selectAll();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void AddressBar::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    if (m_selectOnRelease && !hasSelectedText()) {
        selectAll();
    }
    m_selectOnRelease = false;
}

void AddressBar::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    PlaceSecurity();
}

void AddressBar::ShowAddress()
{
    m_typing = false;
    setText(AddressInput::ToDisplay(m_url));
    setCursorPosition(0);
}

void AddressBar::Retranslate()
{
    setPlaceholderText(tr("Type a web address"));
    setAccessibleName(tr("Address"));
    m_securitySign->setVisible(m_security != Security::None);
    if (m_security == Security::Secure) {
        m_securitySign->setToolButtonStyle(Qt::ToolButtonIconOnly);
        m_securitySign->setIcon(SymbolicIcon::Make(QStringLiteral("lock")));
        m_securitySign->setToolTip(tr("The connection to this site is encrypted."));
        m_securitySign->setAccessibleName(tr("Secure connection"));
    } else {
        m_securitySign->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        m_securitySign->setIcon(SymbolicIcon::Make(QStringLiteral("not-secure")));
        m_securitySign->setText(tr("Not secure"));
        m_securitySign->setToolTip(tr(
            "The connection to this site is not encrypted. Others on the network can read and change it."));
        m_securitySign->setAccessibleName(tr("Not secure"));
    }
    PlaceSecurity();
}

void AddressBar::PlaceSecurity()
{
    if (!m_securitySign) {
        return;
    }
    const int edge = Scaled(SignEdge);
    const int room = m_security == Security::None ? 0 : m_securitySign->sizeHint().width() + edge;
    m_securitySign->setGeometry(edge, edge, qMax(0, room - edge), height() - 2 * edge);
    setTextMargins(room == 0 ? 2 * edge : room + edge, 0, 2 * edge, 0);
}

#include "Toolbar.h"

#include "AddressBar.h"
#include "look/Scaled.h"
#include "look/SymbolicIcon.h"

#include <QtCore/QEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QToolButton>

namespace {

constexpr int IconSize = 20;   // [px]
constexpr int ButtonSize = 36; // [px]
constexpr int Gap = 4;         // between the parts, and on both sides of the address [px]

QToolButton* MakeButton(const QString& name, const QString& icon)
{
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setProperty("tool", true);
    button->setIcon(SymbolicIcon::Make(icon));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void Name(QToolButton* button, const QString& name, const QString& toolTip)
{
    button->setAccessibleName(name);
    button->setToolTip(toolTip);
}

} // namespace

Toolbar::Toolbar(QWidget* parent)
    : QWidget(parent)
    , m_back(MakeButton(QStringLiteral("back_button"), QStringLiteral("back")))
    , m_forward(MakeButton(QStringLiteral("forward_button"), QStringLiteral("forward")))
    , m_reload(MakeButton(QStringLiteral("reload_button"), QStringLiteral("reload")))
    , m_menu(MakeButton(QStringLiteral("menu_button"), QStringLiteral("menu")))
    , m_address(new AddressBar)
    , m_addressRoom(new QHBoxLayout)
{
    setObjectName(QStringLiteral("toolbar"));
    setAttribute(Qt::WA_StyledBackground);
    m_addressRoom->addWidget(m_address);
    auto* row = new QHBoxLayout(this);
    row->addWidget(m_back);
    row->addWidget(m_forward);
    row->addWidget(m_reload);
    row->addLayout(m_addressRoom, 1);
    row->addWidget(m_menu);

    connect(m_back, &QToolButton::clicked, this, &Toolbar::SigBack);
    connect(m_forward, &QToolButton::clicked, this, &Toolbar::SigForward);
    connect(m_reload, &QToolButton::clicked, this, [this] {
        if (m_state.loading) {
            Q_EMIT SigStop();
        } else {
            Q_EMIT SigReload();
        }
    });
    connect(m_menu, &QToolButton::clicked, this, [this] { Q_EMIT SigMenuRequested(m_menu); });
    connect(m_address, &AddressBar::SigEntered, this, &Toolbar::SigAddressEntered);
    Toolbar::AdjustForDpi();
    Retranslate();
}

void Toolbar::SetState(const State& state)
{
    m_state = state;
    ShowAddress();
    m_back->setEnabled(state.canGoBack);
    m_forward->setEnabled(state.canGoForward);
    m_reload->setEnabled(state.canReload);
    m_reload->setIcon(SymbolicIcon::Make(state.loading ? QStringLiteral("close") : QStringLiteral("reload")));
    Name(m_reload, state.loading ? tr("Stop") : tr("Reload"),
         state.loading ? tr("Stop loading (Esc)") : tr("Reload (F5)"));
}

void Toolbar::ShowAddress()
{
    m_address->SetAddress(m_state.address, m_state.security);
}

void Toolbar::StartTyping()
{
    m_address->StartTyping();
}

void Toolbar::ClickMenu()
{
    m_menu->click();
}

void Toolbar::AdjustForDpi()
{
    for (QToolButton* button : {m_back, m_forward, m_reload, m_menu}) {
        button->setIconSize(ScaledSquare(IconSize));
        button->setFixedSize(ScaledSquare(ButtonSize));
    }
    layout()->setContentsMargins(Scaled(QMargins(8, 6, 8, 6)));
    layout()->setSpacing(Scaled(Gap));
    m_addressRoom->setContentsMargins(Scaled(Gap), 0, Scaled(Gap), 0);
}

void Toolbar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    }
}

void Toolbar::Retranslate()
{
    Name(m_back, tr("Back"), tr("Back (Alt+Left)"));
    Name(m_forward, tr("Forward"), tr("Forward (Alt+Right)"));
    Name(m_menu, tr("Menu"), tr("Menu (F10)"));
    SetState(m_state);
}
